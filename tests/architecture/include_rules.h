#pragma once

#include "architecture/source_tree.h"

#include <string>
#include <vector>

namespace krv::architecture {

/// What the libraries and programs include against the order of the layers, one line each:
/// `src/data/loader.cpp:3: "krv/qt/view.h" is above data`. Empty when all is well.
///
/// A quoted name is looked for beside the including file, then under src, under include and under
/// tests; a name in angle brackets is a header of the standard library or of a third party that the
/// room may use. Tests and benchmarks stand outside the layers and may include everything.
std::vector<std::string> include_violations(const std::vector<SourceFile>& files);

/// The circles of files that include each other, one line each: `a.h > b.h > a.h`.
std::vector<std::string> include_circles(const std::vector<SourceFile>& files);

} // namespace krv::architecture
