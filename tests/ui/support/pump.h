// Lets messages run, always with an end.
#pragma once

#include <functional>

namespace rl::test {

/// What a load, or anything else the viewer does by itself, may take at most; milliseconds.
inline constexpr int kDeadline = 30'000;

/// Runs messages until `done` holds; false when the deadline passes first.
bool PumpUntil(const std::function<bool()>& done, int deadline = kDeadline);

/// Runs messages until none has come for a moment: all that an input sets off has happened.
void PumpIdle();

/// Runs messages for a while, to see that something does not happen.
void PumpFor(int milliseconds);

}  // namespace rl::test
