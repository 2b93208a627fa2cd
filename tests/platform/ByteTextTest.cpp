#include "platform/ByteText.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(ByteText, foldsTheCaseOfAsciiLettersAlone) {
    EXPECT_TRUE(equalIgnoringCase("eQSL_rcvd", "EQSL_RCVD"));
    const std::pair<std::string_view, std::string_view> different[] = {
        {"CALL", "CALLS"}, {"CALLS", "CALL"}, {"[", "{"}, {"@", "`"}, {"\xE4", "\xC4"}};
    for (const auto& [a, b] : different)
        EXPECT_FALSE(equalIgnoringCase(a, b)) << a;
}

TEST(ByteText, showsUtf8AndElseWindows1252) {
    const std::pair<std::string_view, QString> cases[] = {
        {"M\xC3\xBCller", QStringLiteral(u"M\u00FCller")},
        {"M\xFCller", QStringLiteral(u"M\u00FCller")},
        {"\x80\x9F\xFF", QStringLiteral(u"\u20AC\u0178\u00FF")},
        {"\x81", QStringLiteral(u"\uFFFD")},
        {"\xC3", QStringLiteral(u"\u00C3")}};
    for (const auto& [bytes, text] : cases)
        EXPECT_EQ(displayText(bytes), text);
    EXPECT_EQ(byteText(QStringLiteral(u"M\u00FCller")), "M\xC3\xBCller");
}

} // namespace
} // namespace tovrel
