#include "fuzz/Fuzz.h"
#include "platform/TestFolder.h"
#include "state/iniFiles.h"

#include <vector>

namespace tovrel {

namespace {

constexpr std::string_view sections[] = {section::globals, section::google, "GCMapOptions"};
constexpr std::string_view keys[] = {"Latitude", "Band0", "Marker", "BAND12", "ConfirmedColor"};

/// The values of some keys, LF for one that is missing.
std::vector<std::string> valuesIn(PrivateProfile& profile) {
    const PrivateProfile::Batch together(profile);
    std::vector<std::string> values;
    for (const std::string_view section : sections)
        for (const std::string_view key : keys)
            values.push_back(profile.read(section, key, "\n", 512));
    return values;
}

/// What a value reads as when it was written: without blanks, then without a pair of quotes.
std::string_view asRead(std::string_view value) {
    value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
    value = value.substr(0, value.find_last_not_of(" \t") + 1);
    const bool quoted = value.size() > 1 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return (quoted ? value.substr(1, value.size() - 2) : value).substr(0, 511);
}

} // namespace

/// A value to be written, then the file.
void tryInput(Input input) {
    static const TestFolder folder;
    const auto number = static_cast<std::size_t>(input.choice(15));
    const std::string_view value = input.line();
    PrivateProfile profile(folder.write("Tovrel.ini", input.rest()));
    std::vector<std::string> values = valuesIn(profile);
    const bool written = profile.write(sections[number / 5], keys[number % 5], value);
    const bool refused = profile.state() == PrivateProfile::State::Foreign ||
                         value.find_first_of({"\r\n\0", 3}) != value.npos;
    require(written != refused, "a value that will do is written");
    if (written)
        values[number] = asRead(value);
    require(valuesIn(profile) == values, "the value reads back and the others stay");
}

} // namespace tovrel
