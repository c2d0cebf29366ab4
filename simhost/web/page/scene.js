// What the host shows, as it comes in one run of bytes: parts with their triangles, and where each
// of them is seen. It answers what lies under a point of the host's screen.
import { onScreen } from './turn.js';

// The header and the numbers after it: see docs/workbench.md.
export function decoded(buffer) {
  const length = new DataView(buffer).getUint32(0, true);
  const text = new TextDecoder().decode(new Uint8Array(buffer, 4, length));
  return { header: JSON.parse(text), buffer, from: 4 + length };
}

// A mesh that came: its arrays lie in the answer's own memory.
function meshOf(about, buffer, from) {
  let at = from + about.at;
  const take = (Kind, count) => {
    const array = new Kind(buffer, at, count);
    at += 4 * count;
    return array;
  };
  const mesh = {
    number: about.number,
    points: take(Float32Array, 3 * about.points), normals: take(Float32Array, 3 * about.points),
    triangles: take(Uint32Array, 3 * about.triangles), edges: take(Float32Array, 6 * about.edges),
    surfaces: about.surfaces, low: [Infinity, Infinity, Infinity], high: [-Infinity, -Infinity, -Infinity],
  };
  mesh.points.forEach((each, i) => {
    mesh.low[i % 3] = Math.min(mesh.low[i % 3], each);
    mesh.high[i % 3] = Math.max(mesh.high[i % 3], each);
  });
  mesh.centre = mesh.low.map((each, i) => (each + mesh.high[i]) / 2);
  mesh.radius = Math.hypot(...mesh.low.map((each, i) => mesh.high[i] - each)) / 2;
  return mesh;
}

// 1, 2, 3, 7 as "1-3,7".
export function ranges(numbers) {
  const pieces = [];
  for (const number of [...numbers].sort((a, b) => a - b)) {
    const last = pieces[pieces.length - 1];
    if (last && last[1] === number - 1) last[1] = number;
    else pieces.push([number, number]);
  }
  return pieces.map(([first, last]) => (first === last ? first : `${first}-${last}`)).join(',');
}

export class Scene {
  constructor() {
    this.meshes = new Map();
    this.clear();
  }

  clear() {
    this.key = '';
    this.top = null;
    this.parts = [];
    this.looks = [];
    this.paths = [];
    this.count = 0;
    this.at = new Map();  // from path to number
    this.measure();
  }

  // What the server need not send again.
  address() {
    return `/scene?have=${this.key}&known=${ranges(this.meshes.keys())}`;
  }

  // False: all but the view is as it was.
  take({ header, buffer, from }) {
    if (!header.top) {
      this.clear();
      return true;
    }
    this.top = header.top;
    if (header.same) return false;
    for (const about of header.meshes) this.meshes.set(about.number, meshOf(about, buffer, from));
    const used = new Set(header.parts.map(part => part.mesh));
    for (const number of this.meshes.keys()) if (!used.has(number)) this.meshes.delete(number);
    this.key = header.key;
    this.parts = header.parts.map(part => ({ ...part, mesh: this.meshes.get(part.mesh) }));
    this.looks = header.looks;
    this.paths = header.paths;
    const count = this.count = this.paths.length;
    this.partOf = new Uint32Array(buffer, from, count);
    this.lookOf = new Uint32Array(buffer, from + 4 * count, count);
    this.covered = new Uint32Array(buffer, from + 8 * count, count);
    this.placements = new Float32Array(buffer, from + 12 * count, 12 * count);
    this.at = new Map(this.paths.map((path, i) => [path, i]));
    this.pointCount = this.partOf.reduce((sum, _, i) => sum + this.mesh(i).points.length / 3, 0);
    this.measure();
    return true;
  }

  // The ball around all that there is, in mm.
  measure() {
    const box = this.extents([[1, 0, 0], [0, 1, 0], [0, 0, 1]]);
    this.middle = box ? box.low.map((each, k) => (each + box.high[k]) / 2) : [0, 0, 0];
    this.reach = box ? Math.hypot(...box.low.map((each, k) => box.high[k] - each)) / 2 : 1;
  }

  mesh(i) {
    return this.parts[this.partOf[i]].mesh;
  }

  // A point of the part at number i in the model, in mm.
  point(i, x, y, z) {
    const p = this.placements, at = 12 * i;
    return [0, 1, 2].map(k => x * p[at + k] + y * p[at + 3 + k] + z * p[at + 6 + k] + p[at + 9 + k]);
  }

  centre(i) {
    return this.point(i, ...this.mesh(i).centre);
  }

  // Half the longest that an occurrence can be, in mm.
  radius(i) {
    const at = 12 * i, p = this.placements;
    return this.mesh(i).radius * Math.hypot(p[at], p[at + 1], p[at + 2]);
  }

  // The corners of the box around all, along the axes of the screen in mm; null: there is nothing.
  extents(axes) {
    if (!this.count) return null;
    const low = [Infinity, Infinity, Infinity], high = [-Infinity, -Infinity, -Infinity];
    const view = { axes, scale: 1, place: [0, 0] };
    for (let i = 0; i < this.count; ++i) {
      const mesh = this.mesh(i);
      for (let corner = 0; corner < 8; ++corner) {
        const p = onScreen(view, this.point(i, ...[0, 1, 2].map(
          k => (corner >> k & 1 ? mesh.high[k] : mesh.low[k]))));
        for (let k = 0; k < 3; ++k) {
          low[k] = Math.min(low[k], p[k]);
          high[k] = Math.max(high[k], p[k]);
        }
      }
    }
    return { low, high };
  }

  // The points of an occurrence on the screen: x, y, z of each.
  projected(i, view) {
    const { points } = this.mesh(i);
    const origin = onScreen(view, this.point(i, 0, 0, 0));
    const axes = [[1, 0, 0], [0, 1, 0], [0, 0, 1]].map(axis => onScreen(view, this.point(i, ...axis))
      .map((each, k) => each - origin[k]));
    const result = new Float64Array(points.length);
    for (let p = 0; p < points.length; p += 3) {
      for (let k = 0; k < 3; ++k) {
        result[p + k] = points[p] * axes[0][k] + points[p + 1] * axes[1][k] +
            points[p + 2] * axes[2][k] + origin[k];
      }
    }
    return result;
  }

  // What is seen at a place of the screen: {occurrence, surface, point of the model}, or null.
  hit(view, [x, y]) {
    let nearest = null;
    for (let i = 0; i < this.count; ++i) {
      const [cx, cy, cz] = onScreen(view, this.centre(i));
      const reach = this.radius(i) * view.scale;
      if (Math.hypot(cx - x, cy - y) > reach || (nearest && cz + reach < nearest.z)) continue;
      const found = this.hitOne(i, view, x, y);
      if (found && (!nearest || found.z > nearest.z)) nearest = { ...found, occurrence: i };
    }
    return nearest;
  }

  hitOne(i, view, x, y) {
    const mesh = this.mesh(i), { triangles } = mesh;
    const p = this.projected(i, view);
    let best = null;
    for (let t = 0; t < triangles.length; t += 3) {
      const a = 3 * triangles[t], b = 3 * triangles[t + 1], c = 3 * triangles[t + 2];
      const abx = p[b] - p[a], aby = p[b + 1] - p[a + 1];
      const acx = p[c] - p[a], acy = p[c + 1] - p[a + 1];
      const area = abx * acy - aby * acx;
      if (area <= 1e-9) continue;  // turned away, or seen from its edge
      const dx = x - p[a], dy = y - p[a + 1];
      const u = (dx * acy - dy * acx) / area, v = (abx * dy - aby * dx) / area;
      if (u < 0 || v < 0 || u + v > 1) continue;
      const z = p[a + 2] + u * (p[b + 2] - p[a + 2]) + v * (p[c + 2] - p[a + 2]);
      if (best && z <= best.z) continue;
      best = { z, triangle: t / 3, point: this.inside(i, [a, b, c], u, v) };
    }
    if (best) best.surface = surfaceOf(mesh, best.triangle);
    return best;
  }

  inside(i, [a, b, c], u, v) {
    const { points } = this.mesh(i);
    return this.point(i, ...[0, 1, 2].map(k => points[a + k] + u * (points[b + k] - points[a + k]) +
      v * (points[c + k] - points[a + k])));
  }

  // A place of the screen at which this occurrence is the foremost, in the middle of a triangle as
  // large as can be; null: none was found.
  spot(i, view) {
    const { triangles } = this.mesh(i);
    const p = this.projected(i, view);
    const places = [];
    for (let t = 0; t < triangles.length; t += 3) {
      const [a, b, c] = [0, 1, 2].map(k => 3 * triangles[t + k]);
      const area = (p[b] - p[a]) * (p[c + 1] - p[a + 1]) - (p[b + 1] - p[a + 1]) * (p[c] - p[a]);
      if (area > 0) places.push({ area, at: [0, 1].map(k => (p[a + k] + p[b + k] + p[c + k]) / 3) });
    }
    places.sort((one, other) => other.area - one.area);
    const free = places.slice(0, 100).find(({ at }) => {
      const hit = this.hit(view, at);
      return hit && hit.occurrence === i;
    });
    return free ? free.at : null;
  }
}

function surfaceOf(mesh, triangle) {
  let end = 0;
  for (const [id, count] of mesh.surfaces) {
    end += count;
    if (triangle < end) return id;
  }
  return 0;
}
