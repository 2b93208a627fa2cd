#pragma once

#include <string_view>

namespace tovrel {

/// How far a QSO got; the value is the letter that stands for it.
enum class QsoStatus : char {
    Confirmed = 'C', ///< a QSL of some kind came back
    Worked = 'W',    ///< a QSO without confirmation
    Heard = 'H'      ///< the station was only heard
};

/// Status of a QSO: Heard when the call ends in "=", whatever was confirmed; else Confirmed when
/// one of the three QSL fields is exactly "Y"; else Worked. All values without blanks at their
/// ends.
inline QsoStatus statusOf(std::string_view call, std::string_view qslRcvd,
                          std::string_view eqslRcvd, std::string_view lotwRcvd) {
    if (call.ends_with('=')) {
        return QsoStatus::Heard;
    }
    const bool confirmed = qslRcvd == "Y" || eqslRcvd == "Y" || lotwRcvd == "Y";
    return confirmed ? QsoStatus::Confirmed : QsoStatus::Worked;
}

} // namespace tovrel
