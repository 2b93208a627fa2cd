#pragma once

#include <string_view>

namespace tovrel {

/// How far a QSO got; the value is the letter that stands for it.
enum class QsoStatus : char {
    Confirmed = 'C', ///< a QSL of some kind came back
    Worked = 'W',    ///< a QSO without confirmation
    Heard = 'H'      ///< the station was only heard
};

/// Status of a QSO: Heard when the call ends in "=", whatever was confirmed.
/// @param call without blanks at its end
/// @param confirmed whether one of the QSL fields says so
inline QsoStatus statusOf(std::string_view call, bool confirmed) {
    if (call.ends_with('=')) {
        return QsoStatus::Heard;
    }
    return confirmed ? QsoStatus::Confirmed : QsoStatus::Worked;
}

} // namespace tovrel
