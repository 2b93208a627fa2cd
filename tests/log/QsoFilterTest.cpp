#include "log/QsoFilter.h"

#include "log/Qso.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(QsoFilter, passesWhatMatchesOneMemberOfEachCriterion) {
    const struct {
        std::vector<int> bands, modes, iotas; ///< selected members
        std::string_view band, mode, iota;
        bool passes;
    } cases[] = {
        {{}, {}, {}, "70CM", "", "??", true},        {{7}, {}, {}, "20m", "", "", false},
        {{7}, {}, {}, "2M", "", "", false},          {{1, 12}, {}, {}, "2M", "", "", true},
        {{1, 12}, {}, {}, "160M", "", "", true},     {{1}, {}, {}, "OFF", "", "", false},
        {{}, {1}, {}, "", "Phone", "", false},       {{}, {2}, {}, "", "CW", "", true},
        {{}, {3}, {}, "", "ssb", "", true},          {{}, {1, 3}, {}, "", "CW", "", false},
        {{}, {}, {4}, "", "", "EU-005", true},       {{}, {}, {4}, "", "", "E", false},
        {{}, {}, {4}, "", "", "eu-005", false},      {{}, {}, {1, 7}, "", "", "SA-001", true},
        {{7}, {1}, {4}, "20M", "SSB", "EU-1", true}, {{7}, {1}, {4}, "40M", "SSB", "EU-1", false},
        {{7}, {1}, {4}, "20M", "CW", "EU-1", false}, {{7}, {1}, {4}, "20M", "SSB", "AF-1", false},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const auto& c = cases[i];
        Filter filter;
        for (const int member : c.bands)
            filter.band.set(member, true);
        for (const int member : c.modes)
            filter.mode.set(member, true);
        for (const int member : c.iotas)
            filter.iota.set(member, true);
        EXPECT_EQ(passesFilter(filter, c.band, modeGroupOf(c.mode), c.iota, LetterCase::AsWritten),
                  c.passes)
            << "case " << i;
    }
}

TEST(QsoStatus, followsTheCallAndThenTheThreeConfirmations) {
    const struct {
        std::string_view call, qsl, eqsl, lotw;
        QsoStatus status;
    } cases[] = {
        {"DL1A", "", "", "", QsoStatus::Worked},     {"DL1A", "Y", "", "", QsoStatus::Confirmed},
        {"DL1A", "", "Y", "", QsoStatus::Confirmed}, {"DL1A", "N", "", "Y", QsoStatus::Confirmed},
        {"DL1A", "y", "R", "V", QsoStatus::Worked},  {"=", "", "", "", QsoStatus::Heard},
        {"=DL1A", "", "", "", QsoStatus::Worked},    {"", "", "", "", QsoStatus::Worked},
        {"", "Y", "", "", QsoStatus::Confirmed},
    };
    EntityTable entities;
    Qso qso({}, entities);
    for (const auto& c : cases) {
        QsoFields fields;
        fields.call = c.call;
        fields.qslRcvd = c.qsl;
        fields.eqslRcvd = c.eqsl;
        fields.lotwRcvd = c.lotw;
        qso.take(fields, 1);
        EXPECT_EQ(qso.status(), c.status) << c.call << "," << c.qsl;
    }
}

} // namespace
} // namespace tovrel
