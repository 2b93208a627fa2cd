#include "run/CommandLine.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(CommandLine, NamesTheSettingsFileWholeUnlessItBeginsWithTheLogOption) {
    const struct {
        const char *line, *settings, *log;
    } rows[] = {{"", "Tovrel.ini", ""},
                {"club.ini", "club.ini", ""},
                {"my club.ini --log x", "my club.ini --log x", ""},
                {"--logs", "--logs", ""},
                {"--log", "Tovrel.ini", ""},
                {"--log ", "Tovrel.ini", ""},
                {"--log my log.adi", "Tovrel.ini", "my log.adi"}};
    for (const auto& row : rows) {
        const CommandLine read = readCommandLine(row.line);
        EXPECT_EQ(read.IniFileName, row.settings) << row.line;
        EXPECT_EQ(read.LogFileName, row.log) << row.line;
    }
}

} // namespace
} // namespace tovrel
