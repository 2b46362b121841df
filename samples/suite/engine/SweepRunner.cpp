#include "SweepRunner.h"

namespace suite {

SweepRunner::SweepRunner() = default;

SweepRunner::~SweepRunner() = default;

} // namespace suite
