"""A workbench whose 3-D view is looked at: pixels, places and paths, by the probe window.vxView."""
import json
import struct

from form_page import Page


class ViewPage(Page):
    """What its 3-D view paints, and where."""

    def settle(self):
        """Until what is painted is what the session shows, too."""
        super().settle()
        self.until("!vx.connection.busy && window.vxView && vxView.ready")

    def give(self, script, *arguments):
        return self.driver.execute_script("return " + script, *arguments)

    def selection(self):
        return self.get("/state")["selection"]

    def scene(self):
        """The header of the host's own picture."""
        data = bytes(self.run("""
            const buffer = await (await fetch('/scene')).arrayBuffer();
            const length = new DataView(buffer).getUint32(0, true);
            return [...new Uint8Array(buffer, 0, 4 + length)];"""))
        return json.loads(data[4:4 + struct.unpack("<I", data[:4])[0]])

    def spots(self, wanted):
        """Places at and around which so many parts of different names are the foremost, in whole
        pixels: [(path, x, y)]."""
        found, names = [], set()
        for path in self.give("vxView.paths"):
            name = path.split(":")[0]
            if name in names:
                continue
            spot = self.give("vxView.spot(arguments[0])", path)
            if spot and self.is_foremost(path, round(spot["x"]), round(spot["y"])):
                names.add(name)
                found.append((path, round(spot["x"]), round(spot["y"])))
            if len(found) == wanted:
                return found
        raise AssertionError(f"only {len(found)} parts can be seen")

    def is_foremost(self, path, x, y):
        """Not its border, where an edge is painted."""
        return self.give("[[0, 0], [3, 0], [-3, 0], [0, 3], [0, -3]].every(([dx, dy]) =>"
                         " vxView.pathAt(arguments[0] + dx, arguments[1] + dy) === arguments[2])",
                         x, y, path)

    def colour(self, x, y):
        return self.give("vxView.colourAt(arguments[0], arguments[1])", x, y)

    def leave_view(self):
        """What lies under the pointer is painted in another colour."""
        self.mouse(20, 20).perform()
        self.settle()
