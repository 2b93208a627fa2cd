#pragma once

#include <QString>
#include <memory_resource>
#include <string>
#include <string_view>

/// Texts of the log and of the settings are bytes; these are the few things done with them.
namespace tovrel {

/// `text` without the blanks (character 32, nothing else) at its end.
inline std::string_view trimBlanksRight(std::string_view text) {
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    return text;
}

/// `text` without the blanks (character 32, nothing else) at its ends.
inline std::string_view trimBlanks(std::string_view text) {
    text = trimBlanksRight(text);
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    return text;
}

/// ASCII upper case of one byte; bytes past 127 stay, since their code page is not known.
constexpr char upperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Whether two texts are equal when ASCII case does not count.
bool equalIgnoringCase(std::string_view a, std::string_view b);

/// Whether bytes are UTF-8.
bool isUtf8(std::string_view bytes);

/// Text for the screen: UTF-8 where the bytes are that, else Windows-1252.
QString displayText(std::string_view bytes);

/// What the user typed or chose, as the bytes that settings and file names hold (UTF-8).
std::string byteText(const QString& text);

/// Keeps many short texts without an allocation for each; they live as long as it does.
using Texts = std::pmr::monotonic_buffer_resource;

/// A copy of a text among others.
std::string_view keep(Texts& texts, std::string_view text);

} // namespace tovrel
