// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>
#include <vector>

/// How this program was called.
namespace OwnCall {

/// What main() got: before all else.
void remember(int argc, char* argv[]);

/// Its arguments, in UTF-8.
const std::vector<std::string>& arguments();

/// They with blanks between.
std::string inOneLine();

/// What follows an option among them; empty if nothing does.
std::string argumentAfter(const std::string& option);

/// A file beside this program, of the program's name without the suffix of programs, and with this
/// one. Where a link was called, the file is beside the link.
std::filesystem::path fileBeside(const char* suffix);

} // namespace OwnCall
