#pragma once

#include "log/QsoFields.h"
#include "log/TagIndex.h"
#include "platform/Files.h"
#include "platform/UserPrompt.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tovrel {

/// Rows of FieldTable that hold the tags the program asks for, 0 where the dictionary lacks one.
struct FieldRows {
    int RowCall = 0;      ///< CALL
    int RowMode = 0;      ///< MODE
    int RowQslRcvd = 0;   ///< QSL_RCVD
    int RowBand = 0;      ///< BAND
    int RowIota = 0;      ///< IOTA
    int RowLatitude = 0;  ///< APP_LOGGER32_LAT
    int RowLongitude = 0; ///< APP_LOGGER32_LNG
    int RowEqslRcvd = 0;  ///< eQSL_QSL_RCVD
    int RowLotwRcvd = 0;  ///< LOTW_QSL_RCVD
    int RowCountry = 0;   ///< COUNTRY
};

/// The field dictionary, a list of the tags that the program keeps, and the values that they have
/// in the record in hand. Rows count from 1 in the order of the dictionary's lines; row 0 has no
/// tag and takes the value of every tag without a row. The case of a tag's letters does not count.
class FieldTable {
public:
    /// Name of the dictionary in its folder, where it is found in any case of its letters.
    static constexpr std::string_view fileName = "TVADIF.txt";

    /// What the user is told when the dictionary is missing at the start of a pass.
    static constexpr std::string_view missingMessage = "     TVADIF.txt file not found.\r\n"
                                                       "Tovrel will not function properly\r\n"
                                                       "without the latest TVADIF.txt file.";

    FieldTable() = default;
    FieldTable(const FieldTable&) = delete;
    FieldTable& operator=(const FieldTable&) = delete;

    /// The 24 lines of a new dictionary, each ended by CR LF.
    static std::string_view defaultFieldDictionary();

    /// Writes the default dictionary into `folder` unless a file of its name, in any case, stands
    /// there; that one stays as it is, whatever it holds. Only one of no length counts as missing:
    /// a disk that was full once may have left it.
    static WriteEnd CreateFieldDictionary(const std::string& folder);

    /// Empties the table and builds it from the dictionary in `folder`. All row numbers are 0
    /// until ResolveFieldRows().
    /// @param defaultServes whether the default dictionary takes the place of a missing one, as in
    ///        a folder that has to stay as it is
    /// @return Missing, also of a file of no length, when the default does not serve, and
    /// Unreadable
    ///         of a file that can't be read, whose failure() tells more; FieldCount() is 0 then
    ReadEnd LoadFieldDictionary(const std::string& folder, bool defaultServes = false);

    /// The dictionary that could not be read; to be asked for when that was the end of loading it.
    const FileFailure& failure() const { return failure_; }

    /// The same from a dictionary's text: one tag a line, ended by CR, LF or CR LF, blanks round it
    /// ignored. An empty line makes a row that nothing finds.
    void loadFrom(std::string_view text);

    /// Looks up the rows of all tags that the program asks for.
    void ResolveFieldRows();

    /// The rows as ResolveFieldRows() found them.
    const FieldRows& rows() const { return rows_; }

    /// Number of lines of the dictionary, the row 0 not counted.
    int FieldCount() const { return static_cast<int>(values_.size()) - 1; }

    /// Row of the first tag that equals `name`, case not counting; 0 when there is none.
    int FindFieldRow(std::string_view name) const { return tags_.find(name); }

    /// Takes the values of a record's fields, which end where the next `<` begins, whatever length
    /// a tag declares. A later field of a row replaces an earlier one. A `<` with no ":" after it
    /// has no name and is passed over; a tag with no ">" after it has an empty value. Any bytes
    /// will do; the time is linear in the line's length.
    /// @param line must live as long as the values are read, since they are views into it
    void ParseRecordLine(std::string_view line);

    /// Value of a row in the record in hand, all its blanks included; empty when it had none.
    /// @param row 0 to FieldCount()
    std::string_view value(int row) const {
        const Value& stored = values_[static_cast<std::size_t>(row)];
        return stored.record == record_ ? stored.text : std::string_view();
    }

    /// The same without the blanks at its ends.
    std::string_view trimmed(int row) const { return trimBlanks(value(row)); }

    /// Those that the program looks at of the record in hand, once the rows are resolved.
    void read(QsoFields& fields) const {
        fields.call = trimmed(rows_.RowCall);
        fields.mode = trimmed(rows_.RowMode);
        fields.band = trimmed(rows_.RowBand);
        fields.iota = trimmed(rows_.RowIota);
        fields.qslRcvd = trimmed(rows_.RowQslRcvd);
        fields.eqslRcvd = trimmed(rows_.RowEqslRcvd);
        fields.lotwRcvd = trimmed(rows_.RowLotwRcvd);
        fields.country = trimmed(rows_.RowCountry);
        fields.loggerNorth = trimmed(rows_.RowLatitude);
        fields.loggerWest = trimmed(rows_.RowLongitude);
    }

private:
    /// What a row got last, which counts only if it was in the record in hand: so that a long
    /// dictionary costs nothing for each record.
    struct Value {
        std::string_view text;
        std::uint64_t record = 0;
    };

    std::string dictionary_; ///< the text that the names of tags_ are views into
    TagIndex tags_;
    FieldRows rows_;
    std::vector<Value> values_ = std::vector<Value>(1);
    std::uint64_t record_ = 1; ///< number of the record in hand
    FileFailure failure_{};
};

} // namespace tovrel
