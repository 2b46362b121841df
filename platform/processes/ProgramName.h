#pragma once

/// How the files of programs are named here.
namespace ProgramName {

/// The suffix of executable files, with its dot; may be empty.
const char* suffix();

} // namespace ProgramName
