// A vector kernel and the scalar loop together: fast where text is ordinary, exact everywhere.
#pragma once

#include <span>
#include <string_view>

#include "load/text/simd_utf8.h"
#include "load/text/utf_scalar.h"

namespace rl::utf {

template <typename Unit>
using Utf8Kernel = simd::KernelProgress (*)(const char* bytes, size_t size, size_t from, Unit* out,
                                            size_t room);

/// `Utf8ToUnits` with a given kernel. Where that stops, up to 64 bytes are taken one sequence at a
/// time; when even the first of them will not do, the conversion ends there.
template <typename Unit>
[[nodiscard]] Progress Utf8ToUnitsWith(Utf8Kernel<Unit> kernel, std::string_view bytes,
                                       std::span<Unit> out) {
    constexpr size_t kStretch = 64;
    Progress done;
    for (;;) {
        const std::span<Unit> room = out.subspan(done.written);
        const simd::KernelProgress fast =
            kernel(bytes.data(), bytes.size(), done.read, room.data(), room.size());
        done.read += fast.read;
        done.written += fast.written;
        const Progress slow =
            Utf8ToUnitsScalar(bytes.substr(done.read, kStretch), out.subspan(done.written));
        if (slow.read == 0) {
            return done;
        }
        done.read += slow.read;
        done.written += slow.written;
    }
}

}  // namespace rl::utf
