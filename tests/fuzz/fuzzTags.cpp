#include "fuzz/Fuzz.h"
#include "log/FieldTable.h"

namespace tovrel {

namespace {

/// Tags of the rows of a list, row 0 having none.
std::vector<std::string_view> tagsOf(std::string_view list) {
    std::vector<std::string_view> tags(1);
    list.remove_prefix(list.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    while (!list.empty()) {
        const std::size_t end = std::min(list.find_first_of("\r\n"), list.size());
        tags.push_back(trimBlanks(list.substr(0, end)));
        list.remove_prefix(std::min(end + (list.substr(end, 2) == "\r\n" ? 2 : 1), list.size()));
    }
    return tags;
}

/// Row of a tag's name, found the slow way.
std::size_t rowOf(std::string_view name, const std::vector<std::string_view>& tags) {
    std::size_t row = name.empty() ? tags.size() : 1;
    while (row < tags.size() && !equalIgnoringCase(tags[row], name))
        ++row;
    return row < tags.size() ? row : 0;
}

/// Values that a record gives the rows, found the slow way.
std::vector<std::string_view> valuesOf(std::string_view line,
                                       const std::vector<std::string_view>& tags) {
    std::vector<std::string_view> values(tags.size());
    for (std::size_t tag = 0; (tag = line.find('<', tag)) != line.npos; ++tag) {
        const std::size_t colon = line.find(':', tag);
        const std::string_view mark = line.substr(tag + 1, 3);
        if (colon == line.npos || equalIgnoringCase(mark, "EOR") || equalIgnoringCase(mark, "EOH"))
            continue;
        const std::size_t value = std::min(line.find('>', tag), line.size() - 1) + 1;
        values[rowOf(line.substr(tag + 1, colon - tag - 1), tags)] =
            line.substr(value, line.find('<', value) - value);
    }
    return values;
}

} // namespace

/// Two records, then the list.
void tryInput(Input input) {
    const std::string_view records[] = {input.line(), input.line()};
    const std::vector<std::string_view> tags = tagsOf(input.rest());
    FieldTable table;
    table.loadFrom(input.rest());
    table.ResolveFieldRows();
    require(table.FieldCount() + 1 == std::ssize(tags), "each line has a row");
    for (const std::string_view record : records) {
        table.ParseRecordLine(record);
        const std::vector<std::string_view> values = valuesOf(record, tags);
        for (std::size_t row = 0; row < values.size(); ++row)
            require(table.value(static_cast<int>(row)) == values[row], "the value is the record's");
    }
}

} // namespace tovrel
