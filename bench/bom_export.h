// The export of a bill of materials, timed against the library that writes the same cells.
#pragma once

#include <filesystem>

// Exports a table of this many rows and 8 columns, then has the library alone write the same cells,
// three times each in turn, and prints the shortest times. Returns 0 if the file was written.
int MeasureBomExport(int rows, const std::filesystem::path& modules);
