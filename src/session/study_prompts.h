#pragma once

namespace mirvane {

/// The sentences of the two sessions.
inline constexpr const char* prompt1 =
    "The quick brown fox jumps over the lazy dog. "
    "She sells sea shells by the sea shore every morning.";
inline constexpr const char* prompt2 =
    "Please call Stella and ask her to bring these things with her. "
    "I went to the store and bought some fresh apples yesterday.";

}  // namespace mirvane
