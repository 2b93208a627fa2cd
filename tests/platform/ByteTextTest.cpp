#include "platform/ByteText.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(ByteText, trimsTheBlankCharacterOnly) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"  a b  ", "a b"}, {"", ""}, {"   ", ""}, {" \ta\t ", "\ta\t"}, {" \r\n", "\r\n"}};
    for (const auto& [text, trimmed] : cases)
        EXPECT_EQ(trimBlanks(text), trimmed);
    EXPECT_EQ(trimBlanksRight("  a "), "  a");
}

TEST(ByteText, foldsTheCaseOfAsciiLettersAlone) {
    EXPECT_TRUE(equalIgnoringCase("eQSL_rcvd", "EQSL_RCVD"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
    EXPECT_FALSE(equalIgnoringCase("CALL", "CALLS"));
    EXPECT_FALSE(equalIgnoringCase("CALLS", "CALL"));
    EXPECT_FALSE(equalIgnoringCase("[", "{"));
    EXPECT_FALSE(equalIgnoringCase("@", "`"));
    EXPECT_FALSE(equalIgnoringCase("\xE4", "\xC4"));
}

TEST(ByteText, showsUtf8AndElseWindows1252) {
    const std::pair<std::string_view, QString> cases[] = {
        {"M\xC3\xBCller", QStringLiteral(u"M\u00FCller")},
        {"M\xFCller", QStringLiteral(u"M\u00FCller")},
        {"\x80\x9F\xFF", QStringLiteral(u"\u20AC\u0178\u00FF")},
        {"\x81", QStringLiteral(u"\uFFFD")},
        {"\xC3", QStringLiteral(u"\u00C3")},
        {"", QString()}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(displayText(bytes), text);
    EXPECT_EQ(byteText(QStringLiteral(u"M\u00FCller")), "M\xC3\xBCller");
}

} // namespace
} // namespace tovrel
