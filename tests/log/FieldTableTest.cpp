#include "log/FieldTable.h"

#include "platform/ByteText.h"
#include "platform/TestFolder.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace tovrel {
namespace {

constexpr std::string_view dictionary = "CALL\r\nband\r\n\r\n MODE \r\nCall\r\nNAME";

TEST(FieldTable, valuesEndAtTheNextTagWhateverTheTagDeclares) {
    const struct {
        const char* what;
        std::string_view line;
        std::string_view call;
        std::string_view band;
        std::string_view other; ///< row 0
    } cases[] = {
        {"plain", "<CALL:4>DL1A<BAND:3>20M<EOR>", "DL1A", "20M", ""},
        {"any case, type letter, blanks kept", "<call:4:s> DL1A <BaNd:1>20M \t<eor>", " DL1A ",
         "20M \t", ""},
        {"declared lengths wrong", "<CALL:1>DL1A<BAND:99>20M<EOR>", "DL1A", "20M", ""},
        {"the later field wins", "<CALL:1>A<BAND:1>B<CALL:1>C<EOR>", "C", "B", ""},
        {"the scan goes on after the end mark", "<CALL:1>A<EOR><BAND:1>B<EOR>", "A", "B", ""},
        {"unknown tags share row 0", "<X:1>x<CALL:1>A<YY:1>y<EOR>", "A", "", "y"},
        {"empty name", "<:1>x<CALL:1>A<EOR>", "A", "", "x"},
        {"names that begin like an end mark", "<EORX:1>x<eohfoo:1>y<CALL:1>A", "A", "", ""},
        {"a name that only begins with EO", "<EO:1>x<CALL:1>A", "A", "", "x"},
        {"no colon in the tag", "<NAME>x<CALL:1>A<EOR>", "A", "", "x"},
        {"a value with a tag sign", "<CALL:3>A<B:1>C<BAND:1>D", "A", "D", "C"},
        {"a tag sign with no colon after it", "<CALL:3>A<B", "A", "", ""},
        {"no end of tag", "<CALL:1>A<BAND:1", "A", "", ""},
        {"the end of tag of another", "<CALL:1<BAND:1>B", "B", "B", ""},
        {"end of the text right after the tag", "<BAND:1>", "", "", ""},
        {"name with blanks is another name", "< CALL:1>A", "", "", "A"},
        {"nothing", "", "", "", ""},
        {"no tag", "CALL:1>A", "", "", ""},
    };
    FieldTable table;
    table.loadFrom(dictionary);
    for (const auto& c : cases) {
        table.ParseRecordLine("<CALL:1>old<BAND:1>old<OLD:1>old");
        table.ParseRecordLine(c.line);
        EXPECT_EQ(table.value(table.FindFieldRow("CALL")), c.call) << c.what;
        EXPECT_EQ(table.value(table.FindFieldRow("BAND")), c.band) << c.what;
        EXPECT_EQ(table.value(0), c.other) << c.what;
    }
    table.ParseRecordLine("<CALL:4>  \tDL1A  <EOR>");
    EXPECT_EQ(table.trimmed(1), "\tDL1A");
}

// The lines take minutes together if a tag's search looks again at what an earlier one has passed.
TEST(FieldTable, takesLinearTimeForBrokenLines) {
    constexpr std::size_t count = 1000000;
    const std::string many(count, '<');
    const std::string colons(count, ':');
    FieldTable table;
    table.loadFrom(std::string(count / 2, '<').append("\n").append(dictionary));
    for (std::string line :
         {many, many + ":", many + ">", many + ":>", colons + many + ":", many + colons + ">x"}) {
        line += "<CALL:1>A";
        table.ParseRecordLine(line);
        EXPECT_EQ(table.value(table.FindFieldRow("CALL")), "A");
    }
}

TEST(FieldTable, findsTheFirstLineOfEqualNames) {
    FieldTable table;
    EXPECT_EQ(table.FieldCount(), 0);
    EXPECT_EQ(table.FindFieldRow("CALL"), 0);
    table.loadFrom(dictionary);
    EXPECT_EQ(table.FieldCount(), 6);
    const std::pair<std::string_view, int> names[] = {
        {"CALL", 1}, {"cAlL", 1}, {"BAND", 2}, {"", 0},      {"MODE", 4},
        {"NAME", 6}, {"CAL", 0},  {"DALL", 0}, {" CALL", 0}, {"CALLS", 0}};
    for (const auto& [name, row] : names)
        EXPECT_EQ(table.FindFieldRow(name), row) << name;

    const std::string longName(200, 'n');
    for (const std::string_view lineEnd : {"\r", "\n", "\r\n"}) {
        const std::string end(lineEnd);
        table.loadFrom("\xEF\xBB\xBF"
                       "A" +
                       end + longName + "x" + end + longName + "y" + end);
        EXPECT_EQ(table.FieldCount(), 3);
        EXPECT_EQ(table.FindFieldRow("a"), 1);
        EXPECT_EQ(table.FindFieldRow(longName + "Y"), 3);
        EXPECT_EQ(table.FindFieldRow(longName + "Z"), 0);
    }
}

// Names are compared by their ends first: whatever letter differs, it has to count.
TEST(FieldTable, tellsNamesOfAnyLengthApart) {
    std::vector<std::string> names;
    for (std::size_t length = 1; length <= 80; ++length) {
        for (std::size_t changed = 0; changed < length; ++changed) {
            names.emplace_back(length, 'n');
            names.back()[changed] = 'X';
        }
    }
    std::string text;
    for (const std::string& name : names)
        text += name + "\n";
    FieldTable table;
    table.loadFrom(text);
    for (std::size_t i = 0; i < names.size(); ++i) {
        std::string upper(names[i]);
        std::transform(upper.begin(), upper.end(), upper.begin(), upperCase);
        EXPECT_EQ(table.FindFieldRow(names[i]), static_cast<int>(i) + 1) << names[i];
        EXPECT_EQ(table.FindFieldRow(upper), static_cast<int>(i) + 1) << upper;
        upper[upper.size() / 2] = '_';
        EXPECT_EQ(table.FindFieldRow(upper), 0) << upper;
    }
}

TEST(FieldTable, readsATagThatTheDictionaryLacksFromRowZero) {
    FieldTable table;
    table.loadFrom("CALL\r\n");
    table.ResolveFieldRows();
    table.ParseRecordLine("<IOTA:6>EU-005<CALL:1>A<NAME:3>Bob<EOR>");
    EXPECT_EQ(table.value(table.rows().RowIota), "Bob");

    table.loadFrom("");
    EXPECT_EQ(table.FieldCount(), 0);
    EXPECT_EQ(table.rows().RowCall, 0);
    table.ParseRecordLine("<IOTA:6>EU-005<CALL:1>A");
    EXPECT_EQ(table.value(table.FindFieldRow("CALL")), "A");
}

TEST(FieldTable, createsTheDictionaryOnlyWhereThereIsNone) {
    const TestFolder folder;
    FieldTable table;
    table.loadFrom("CALL");
    EXPECT_EQ(table.LoadFieldDictionary(folder.path()), ReadEnd::Missing);
    EXPECT_EQ(table.FieldCount(), 0);

    EXPECT_TRUE(FieldTable::CreateFieldDictionary(folder.path()));
    EXPECT_EQ(folder.read("TVADIF.txt"), FieldTable::defaultFieldDictionary());
    EXPECT_EQ(table.LoadFieldDictionary(folder.path()), ReadEnd::Content);
    EXPECT_EQ(table.FieldCount(), 24);

    folder.write("TVADIF.txt", ""); // as a full disk leaves it
    EXPECT_EQ(table.LoadFieldDictionary(folder.path()), ReadEnd::Missing);
    EXPECT_EQ(table.LoadFieldDictionary(folder.path(), true), ReadEnd::Content);
    EXPECT_TRUE(FieldTable::CreateFieldDictionary(folder.path()));
    EXPECT_EQ(folder.read("TVADIF.txt"), FieldTable::defaultFieldDictionary());

    const TestFolder other;
    other.write("tvadif.TXT", "CALL\n");
    EXPECT_TRUE(FieldTable::CreateFieldDictionary(other.path()));
    EXPECT_EQ(other.names(), "tvadif.TXT ");
    EXPECT_EQ(table.LoadFieldDictionary(other.path()), ReadEnd::Content);
    EXPECT_EQ(table.FieldCount(), 1);

    EXPECT_EQ(FieldTable::CreateFieldDictionary(folder.path("missing")).reason,
              "No such file or directory");
    folder.write("TVADIF.txt", std::string(300'000, 'A'));
    EXPECT_EQ(table.LoadFieldDictionary(folder.path()), ReadEnd::Unreadable);
    std::filesystem::create_directory(folder.path("sub"));
    std::filesystem::create_directory(folder.path("sub/TVADIF.txt"));
    EXPECT_TRUE(FieldTable::CreateFieldDictionary(folder.path("sub")));
    EXPECT_EQ(table.LoadFieldDictionary(folder.path("sub"), true), ReadEnd::Unreadable);
    EXPECT_EQ(table.failure().path, folder.path("sub/TVADIF.txt"));
    EXPECT_EQ(table.failure().reason, "Is a directory");
}

} // namespace
} // namespace tovrel
