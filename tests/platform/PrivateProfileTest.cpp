#include "platform/PrivateProfile.h"

#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

constexpr std::size_t size = 512;

TEST(PrivateProfile, readsAValueAsTheSettingsFormatHasIt) {
    const struct {
        const char* what;
        std::string content;
        std::string value; ///< of key Key in section Main, "default" when missing
    } cases[] = {{"case", "[MAIN]\r\nkEY=Value\r\n", "Value"},
                 {"LF and no end of the last line", "[Main]\nKey=value", "value"},
                 {"CR alone", "[Main]\rKey=value\r", "value"},
                 {"byte order mark", "\xEF\xBB\xBF[Main]\nKey=value\n", "value"},
                 {"blanks", " [ Main ] \r\n \tKey\t = \t a  b \t\r\n", "a  b"},
                 {"empty", "[Main]\r\nKey=\r\n", ""},
                 {"value with =", "[Main]\r\nKey=a=b;c\r\n", "a=b;c"},
                 {"quotes", "[Main]\r\nKey=\" a \"\r\n", " a "},
                 {"single quotes", "[Main]\r\nKey='a'\r\n", "a"},
                 {"one pair only", "[Main]\r\nKey=\"\"a\"\"\r\n", "\"a\""},
                 {"quotes that don't match", "[Main]\r\nKey=\"a'\r\n", "\"a'"},
                 {"a quote alone", "[Main]\r\nKey=\"\r\n", "\""},
                 {"the first of two keys", "[Main]\r\nKey=1\r\nKey=2\r\n", "1"},
                 {"the first of two sections", "[Main]\r\nA=1\r\n[Main]\r\nKey=2\r\n", "default"},
                 {"other sections", "[Mainly]\r\nKey=1\r\n[Main]\r\nKey=2\r\n", "2"},
                 {"before any section", "Key=1\r\n[Main]\r\n", "default"},
                 {"comment", "[Main]\r\n;Key=1\r\n", "default"},
                 {"key without =", "[Main]\r\nKey\r\n", "default"},
                 {"section mark not closed", "[]\r\n[Main\r\nKey=1\r\n", "1"}};
    const TestFolder folder;
    for (const auto& c : cases) {
        const PrivateProfile profile(folder.write("a.ini", c.content));
        EXPECT_EQ(profile.read("Main", "Key", "default", size), c.value) << c.what;
    }
    const PrivateProfile missing(folder.path("missing.ini"));
    EXPECT_EQ(missing.state(), PrivateProfile::State::Missing);
    EXPECT_EQ(missing.read("Main", "Key", "default", size), "default");
}

TEST(PrivateProfile, writesAKeyAndKeepsAllElse) {
    const struct {
        const char* what;
        std::string before, after; ///< of writing Key=new in section Main
    } cases[] = {
        {"new file", "", "[Main]\r\nKey=new\r\n"},
        {"another value; comments, order and unknown keys stay",
         "; top\r\n[Other]\r\nKey=1\r\n\r\n[Main]\r\n; c\r\nZ = 2\r\nkey = old \r\nA=3\r\n",
         "; top\r\n[Other]\r\nKey=1\r\n\r\n[Main]\r\n; c\r\nZ = 2\r\nkey=new\r\nA=3\r\n"},
        {"new key goes after the last used line of its section",
         "[Main]\r\nA=1\r\n\r\n[Other]\r\nB=2\r\n",
         "[Main]\r\nA=1\r\nKey=new\r\n\r\n[Other]\r\nB=2\r\n"},
        {"empty section", "[Main]\r\n[Other]\r\n", "[Main]\r\nKey=new\r\n[Other]\r\n"},
        {"new section, LF, last line without end", "[Other]\nA=1",
         "[Other]\nA=1\n[Main]\nKey=new\n"},
        {"key on the last line without end", "[Main]\nKey=1", "[Main]\nKey=new"},
        {"a comment is no key", "[Main]\n;Key=1\n", "[Main]\n;Key=1\nKey=new\n"},
        {"the same value stays as it is spelt", "[Main]\n Key =  new \n",
         "[Main]\n Key =  new \n"}};
    const TestFolder folder;
    for (const auto& c : cases) {
        PrivateProfile profile(folder.path("a.ini"));
        std::filesystem::remove(profile.path());
        if (!c.before.empty())
            folder.write("a.ini", c.before);
        EXPECT_TRUE(profile.write("Main", "Key", "new")) << c.what;
        EXPECT_EQ(folder.read("a.ini"), c.after) << c.what;
        for (const std::string_view broken : {"a\nb", "a\rb"})
            EXPECT_FALSE(profile.write("Main", "Key", broken)) << "it would break the file";
        EXPECT_EQ(profile.read("MAIN", "KEY", "", size), "new") << c.what;
    }
}

TEST(PrivateProfile, replacesTheFileOnceAtTheEndOfTheOutermostBatch) {
    const TestFolder folder;
    PrivateProfile profile(folder.write("a.ini", "[Main]\nA=1\n"));
    PrivateProfile::Batch outer(profile);
    EXPECT_TRUE(profile.write("Main", "A", "2"));
    {
        const PrivateProfile::Batch inner(profile);
        EXPECT_TRUE(profile.write("Main", "B", "3"));
    }
    EXPECT_EQ(profile.read("Main", "A", "", size) + profile.read("Main", "B", "", size), "23");
    EXPECT_EQ(folder.read("a.ini"), "[Main]\nA=1\n");
    EXPECT_TRUE(outer.finish());
    EXPECT_EQ(folder.read("a.ini"), "[Main]\nA=2\nB=3\n");
    {
        const PrivateProfile::Batch batch(profile);
        profile.write("Main", "A", "2");
        folder.write("a.ini", "[Main]\nA=9\n");
    }
    EXPECT_EQ(folder.read("a.ini"), "[Main]\nA=9\n") << "another's change: nothing was written";
}

TEST(PrivateProfile, neverWritesWhatIsNoSettingsFile) {
    const TestFolder folder;
    const std::string foreign[] = {"<CALL:4>W1AW<EOR>\r\n",
                                   " ",
                                   "A=1\n[Main",
                                   std::string("[Main]\nA=1\n\0", 12),
                                   "\xFF\xFE[\x01M\x01]\x01\n",
                                   "[Main]\n" + std::string(4 << 20, ';')};
    for (const std::string& bytes : foreign) {
        PrivateProfile profile(folder.write("a.ini", bytes));
        EXPECT_EQ(profile.state(), PrivateProfile::State::Foreign) << bytes.substr(0, 20);
        EXPECT_FALSE(profile.write("Main", "A", "2"));
        PrivateProfile::Batch batch(profile);
        EXPECT_FALSE(profile.write("Main", "A", "2"));
        EXPECT_FALSE(batch.finish());
        EXPECT_EQ(profile.read("Main", "A", "default", size), "default");
        EXPECT_TRUE(folder.read("a.ini") == bytes);
    }
}

} // namespace
} // namespace tovrel
