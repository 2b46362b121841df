// SPDX-License-Identifier: MIT
#pragma once

class QFile;

/// Writes the data of an open file to its disk, so that it survives a power cut. Blocks until then.
/// False if the system reports a failure.
bool syncToDisk(QFile& file);
