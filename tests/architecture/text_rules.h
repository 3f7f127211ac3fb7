#pragma once

#include "architecture/source_tree.h"

#include <string>
#include <string_view>
#include <vector>

namespace krv::architecture {

/// What is wrong with the texts of the files, one line each; empty when all is well. Looks for
/// files of more than 600 lines, marks of an unfinished merge, notes of unfinished work, tabs in
/// sources, carriage returns, a missing last line end, and for the folder that the project happens
/// to lie in. \param root  the project's folder as an absolute path
std::vector<std::string> text_violations(const std::vector<SourceFile>& files,
                                         std::string_view root);

} // namespace krv::architecture
