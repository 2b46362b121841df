#pragma once

class RecordFolder;
struct RunRecord;

/// The copy of a run's model in its record.
namespace ModelCopy {

/// Copies the model and adds its checksum and its size (segments, frequencies) to the record. A
/// model that cannot be read is left out: its run will say why. False when the copy cannot be
/// written.
bool add(RunRecord& record, RecordFolder& folder);

} // namespace ModelCopy
