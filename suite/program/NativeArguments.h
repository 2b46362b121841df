// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <vector>

/// The words of a command line as the system has them, so that no letter is lost.
namespace suite::NativeArguments {

/// The words, the program's name first: on Unix those of main(), on Windows, where these are in the
/// code page, the system's own in UTF-8.
std::vector<QByteArray> words(int argc, char* argv[]);

} // namespace suite::NativeArguments
