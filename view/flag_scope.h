// A flag that is set for the length of a block.
#pragma once

namespace rl {

/// Puts back what was there before, so that blocks may nest.
class FlagScope {
public:
    explicit FlagScope(bool& flag) noexcept : flag_(flag), previous_(flag) { flag_ = true; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;
    ~FlagScope() { flag_ = previous_; }

private:
    bool& flag_;
    bool previous_;
};

}  // namespace rl
