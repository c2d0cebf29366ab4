// Large assemblies made to measure, for trying out how commands and the host bear many components.
#pragma once

#include <filesystem>

namespace simhost {

// Writes `large.asm.1` and the models below it into a real folder, which is made if it is missing;
// files of the same names are replaced. Below the top are exactly `occurrences` components,
// counted in the expanded tree over all levels, of exactly `models` different models (parts and
// sub-assemblies), and the deepest component lies `depth` levels below the top (1: all directly
// in it). Sub-assemblies are used again and again, so that the files stay few and small. The same
// numbers and seed give the same files on every system. At most 2 000 000 occurrences of 100 000
// models in 1 000 levels.
// Throws std::invalid_argument for numbers that no assembly can have, and std::runtime_error if a
// file cannot be written.
void GenerateAssembly(const std::filesystem::path& folder, int occurrences, int models, int depth,
                      unsigned seed);

}  // namespace simhost
