#pragma once

#include <string_view>

namespace tovrel {

/// The fields of a record that the program looks at, without the blanks at their ends; a field that
/// is empty and one that is missing are alike. They are views into the log's text, good until the
/// next record.
struct QsoFields {
    std::string_view call;        ///< CALL
    std::string_view mode;        ///< MODE
    std::string_view band;        ///< BAND
    std::string_view iota;        ///< IOTA
    std::string_view qslRcvd;     ///< QSL_RCVD
    std::string_view eqslRcvd;    ///< EQSL_QSL_RCVD
    std::string_view lotwRcvd;    ///< LOTW_QSL_RCVD
    std::string_view country;     ///< COUNTRY
    std::string_view loggerNorth; ///< APP_LOGGER32_LAT, degrees, north positive
    std::string_view loggerWest;  ///< APP_LOGGER32_LNG, degrees, west positive

    // Read of a log of any logger only.
    std::string_view lat;           ///< LAT, with N or S
    std::string_view lon;           ///< LON, with E or W
    std::string_view gridSquare;    ///< GRIDSQUARE
    std::string_view gridSquareExt; ///< GRIDSQUARE_EXT
    std::string_view dxcc;          ///< DXCC, number of the entity
};

} // namespace tovrel
