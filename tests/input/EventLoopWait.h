#pragma once

#include <functional>

namespace inputtests {

// Runs the event loop until the condition holds or the time is up; answers the condition.
bool WaitUntil(const std::function<bool()>& ACondition, int ATimeoutMs = 3000);
// runs the event loop for the given time, deferred deletions included
void RunEventLoop(int AMilliseconds);

} // namespace inputtests
