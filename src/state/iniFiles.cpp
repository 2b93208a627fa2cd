#include "state/iniFiles.h"

#include "platform/ByteText.h"
#include "platform/Files.h"
#include "platform/Numbers.h"

#include <utility>

namespace tovrel {

namespace {

constexpr std::size_t valueBuffer = 512;

} // namespace

iniFiles::iniFiles(std::string programFolder, std::string_view IniFileName,
                   PrivateProfile::Storage storage)
    : programFolder_(std::move(programFolder)), storage_(storage),
      profile_(filePath(programFolder_, IniFileName), storage) {
    hearsFailure_ =
        profile_.failed.connect([this](const PrivateProfile::Failure& failure) { note(failure); });
}

FileFailure iniFiles::unreadable() const {
    return {FileFailure::Act::Read, "The settings file could not be read.", path(),
            profile_.fault()};
}

void iniFiles::note(const PrivateProfile::Failure& failure) {
    const bool reading = failure.of == PrivateProfile::Failure::Of::Reading;
    if (std::exchange(noted_[reading ? 0 : 1], true))
        return;
    if (reading) {
        untold_ = {FileFailure::Act::Read, "The settings file could not be read.", path(),
                   failure.reason};
    } else {
        untold_ = {FileFailure::Act::Write, "The settings could not be stored.", path(),
                   failure.reason};
    }
    failed();
}

std::optional<FileFailure> iniFiles::takeFailure() { return std::exchange(untold_, std::nullopt); }

std::string iniFiles::ReadIniValue(std::string_view section, std::string_view key,
                                   std::string_view defaultValue) const {
    return profile_.read(section, key, defaultValue, valueBuffer);
}

std::string iniFiles::readPath(std::string_view section, std::string_view key) const {
    return byteText(displayText(ReadIniValue(section, key)));
}

bool iniFiles::WriteIniValue(std::string_view section, std::string_view key,
                             std::string_view value) {
    return profile_.write(section, trimBlanks(key), trimBlanks(value));
}

double iniFiles::readNumber(std::string_view section, std::string_view key, double fallback) const {
    return leadingNumber(ReadIniValue(section, key)).value_or(fallback);
}

bool iniFiles::readBoolean(std::string_view section, std::string_view key, bool fallback) const {
    const std::string text = ReadIniValue(section, key);
    if (text.empty())
        return fallback;
    // A number is a boolean too to whoever edits the file by hand: all but 0 is true.
    return equalIgnoringCase(text, "True") || numberValue(text) != 0.0;
}

void iniFiles::writeBoolean(std::string_view section, std::string_view key, bool value) {
    WriteIniValue(section, key, value ? "True" : "False");
}

bool iniFiles::readCheck(std::string_view section, std::string_view key) const {
    return readNumber(section, key) == 1.0;
}

void iniFiles::writeCheck(std::string_view section, std::string_view key, bool value) {
    WriteIniValue(section, key, value ? "1" : "0");
}

std::string memberKey(std::string_view group, int member) {
    return std::string(group).append(std::to_string(member));
}

} // namespace tovrel
