#include "log/FieldTable.h"

#include "platform/ByteText.h"
#include "platform/TestFolder.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

constexpr std::string_view dictionary = "CALL\r\nband\r\n\r\n MODE \r\nCall\r\nNAME";

TEST(FieldTable, valuesEndAtTheNextTagWhateverTheTagDeclares) {
    const struct {
        std::string_view line, call, band, other; ///< the last of row 0
    } cases[] = {
        {"<call:4:s> DL1A <BaNd:1>20M \t<eor>", " DL1A ", "20M \t", ""},
        {"<CALL:1>DL1A<BAND:99>20M<EOR>", "DL1A", "20M", ""},
        {"<CALL:1>A<BAND:1>B<CALL:1>C<EOR>", "C", "B", ""}, // the later field wins
        {"<CALL:1>A<EOR><BAND:1>B<EOR>", "A", "B", ""},     // the end mark ends nothing
        {"<X:1>x<:1>z<CALL:1>A<YY:1>y<EOR>", "A", "", "y"},
        {"<EORX:1>x<eohfoo:1>y<CALL:1>A", "A", "", ""}, // names that begin like an end mark
        {"<EO:1>x<CALL:1>A", "A", "", "x"},
        {"<NAME>x<CALL:1>A<EOR>", "A", "", "x"}, // up to the colon of the next tag
        {"<CALL:3>A<B:1>C<BAND:1>D", "A", "D", "C"},
        {"<CALL:3>A<B", "A", "", ""},
        {"<CALL:1>A<BAND:1", "A", "", ""},
        {"<CALL:1<BAND:1>B", "B", "B", ""}, // the end of tag of another
        {"<BAND:1>", "", "", ""},
        {"< CALL:1>A", "", "", "A"},
        {"", "", "", ""},
    };
    FieldTable table;
    table.loadFrom(dictionary);
    for (const auto& c : cases) {
        table.ParseRecordLine("<CALL:1>old<BAND:1>old<OLD:1>old");
        table.ParseRecordLine(c.line);
        EXPECT_EQ(table.value(table.FindFieldRow("CALL")), c.call) << c.line;
        EXPECT_EQ(table.value(table.FindFieldRow("BAND")), c.band) << c.line;
        EXPECT_EQ(table.value(0), c.other) << c.line;
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

    for (const std::string lineEnd : {"\r", "\n", "\r\n"}) {
        table.loadFrom("\xEF\xBB\xBF#" + lineEnd + lineEnd + "B" + lineEnd);
        EXPECT_EQ(table.FieldCount(), 3);
        EXPECT_EQ(table.FindFieldRow("#"), 1);
        EXPECT_EQ(table.FindFieldRow("B"), 3);
    }
}

// Names are compared by their ends first, and "{" and "[" differ as a letter's cases do: whatever
// byte differs, it has to count.
TEST(FieldTable, tellsNamesOfAnyLengthApart) {
    FieldTable table;
    for (std::size_t length = 1; length <= 80; ++length) {
        const std::string name(length, '[');
        table.loadFrom(std::string(length, 'n') + '\n' + name);
        EXPECT_EQ(table.FindFieldRow(std::string(length, 'N')), 1) << length;
        EXPECT_EQ(table.FindFieldRow(name), 2) << length;
        for (std::size_t at = 0; at < length; ++at) {
            std::string other = name;
            other[at] = '{';
            EXPECT_EQ(table.FindFieldRow(other), 0) << other;
        }
    }
}

TEST(FieldTable, readsATagThatTheDictionaryLacksFromRowZero) {
    FieldTable table;
    table.loadFrom("CALL\r\n");
    table.ResolveFieldRows();
    table.ParseRecordLine("<IOTA:6>EU-005<CALL:1>A<NAME:3>Bob<EOR>");
    EXPECT_EQ(table.value(table.rows().RowIota), "Bob");
    table.loadFrom("");
    EXPECT_EQ(table.rows().RowCall, 0);
}

TEST(FieldTable, createsTheDictionaryOnlyWhereThereIsNone) {
    const TestFolder folder;
    FieldTable table;
    table.loadFrom("CALL");
    EXPECT_EQ(table.LoadFieldDictionary(folder.path()), ReadEnd::Missing);
    EXPECT_EQ(table.FieldCount(), 0);

    folder.write("TVADIF.txt", ""); // as a full disk leaves it
    EXPECT_EQ(table.LoadFieldDictionary(folder.path()), ReadEnd::Missing);
    EXPECT_EQ(table.LoadFieldDictionary(folder.path(), true), ReadEnd::Content);
    EXPECT_EQ(table.FieldCount(), 24);
    EXPECT_TRUE(FieldTable::CreateFieldDictionary(folder.path()));
    EXPECT_EQ(folder.read("TVADIF.txt"), FieldTable::defaultFieldDictionary());

    const TestFolder other;
    other.write("tvadif.TXT", "CALL\n");
    EXPECT_TRUE(FieldTable::CreateFieldDictionary(other.path()));
    EXPECT_EQ(other.names(), "tvadif.TXT ");
    EXPECT_EQ(table.LoadFieldDictionary(other.path()), ReadEnd::Content);
    EXPECT_EQ(table.FieldCount(), 1);
    other.write("tvadif.TXT", std::string(300'000, 'A'));
    EXPECT_EQ(table.LoadFieldDictionary(other.path(), true), ReadEnd::Unreadable);
    EXPECT_EQ(table.failure().path, other.path("tvadif.TXT"));
}

} // namespace
} // namespace tovrel
