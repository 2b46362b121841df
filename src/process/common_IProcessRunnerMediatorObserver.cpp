#include <common_IProcessRunnerMediatorObserver.h>

common_IProcessRunnerMediatorObserver::~common_IProcessRunnerMediatorObserver() = default;
