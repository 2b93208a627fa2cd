#include "platform/ByteText.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <cstring>

namespace tovrel {

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return upperCase(x) == upperCase(y); });
}

bool isUtf8(std::string_view bytes) {
    return QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())).isValidUtf8();
}

QString displayText(std::string_view bytes) {
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(bytes.size()));
    // A byte order mark at the start of a value is a part of it.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless |
                                                  QStringConverter::Flag::ConvertInitialBom);
    QString text = utf8.decode(view);
    if (!utf8.hasError())
        return text;

    // Windows-1252 differs from Latin-1 in the range 0x80 to 0x9F alone. The five bytes that it
    // leaves undefined show as the replacement character.
    static constexpr std::array<char16_t, 32> upperControls = {
        0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};
    text = QString::fromLatin1(view);
    for (QChar& c : text) {
        if (c.unicode() >= 0x80 && c.unicode() < 0xA0)
            c = upperControls[c.unicode() - 0x80U];
    }
    return text;
}

std::string byteText(const QString& text) { return text.toStdString(); }

std::string_view keep(Texts& texts, std::string_view text) {
    if (text.empty())
        return {};
    auto* const copy = static_cast<char*>(texts.allocate(text.size(), 1));
    std::memcpy(copy, text.data(), text.size());
    return {copy, text.size()};
}

} // namespace tovrel
