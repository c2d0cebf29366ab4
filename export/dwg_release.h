// The release of the DWG format that drawings go out in.
#pragma once

// Sets the host's option for it, where it has none, to release 2000. It stays so, and counts for
// DXF as well.
void ChooseDwgRelease();
