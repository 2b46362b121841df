#pragma once

/// Detaches the application from the console that it was started from, where there is such a thing.
void common_detachFromConsole();
