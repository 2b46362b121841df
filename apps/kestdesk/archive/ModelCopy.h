// SPDX-License-Identifier: MIT
#pragma once

class RecordFolder;
struct RunRecord;

/// The copy of a run's model in its record.
namespace ModelCopy {

/// Copies the model and adds its checksum and its size (segments, frequencies) to the record. An
/// unreadable model is skipped: its run reports the reason. False if the copy cannot be written.
bool add(RunRecord& record, RecordFolder& folder);

} // namespace ModelCopy
