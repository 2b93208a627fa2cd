#include "platform/Registry.h"

#include <QString>
#include <array>
#include <cstring>
#include <windows.h>

namespace tovrel {

std::optional<std::string> GetKeyValue(RegistryRoot KeyRoot, const std::string& KeyName,
                                       const std::string& SubKeyRef) {
    constexpr std::size_t most = 1024; // bytes
    const auto root = reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(KeyRoot));
    HKEY key = nullptr;
    if (RegOpenKeyExW(root, QString::fromStdString(KeyName).toStdWString().c_str(), 0, KEY_READ,
                      &key) != ERROR_SUCCESS)
        return std::nullopt;
    DWORD type = REG_NONE;
    std::array<wchar_t, most / sizeof(wchar_t)> value{};
    DWORD size = most;
    const LSTATUS end =
        RegQueryValueExW(key, QString::fromStdString(SubKeyRef).toStdWString().c_str(), nullptr,
                         &type, reinterpret_cast<BYTE*>(value.data()), &size);
    RegCloseKey(key);
    if (end != ERROR_SUCCESS)
        return std::nullopt;
    if (type == REG_SZ) {
        QString text =
            QString::fromWCharArray(value.data(), static_cast<qsizetype>(size / sizeof(wchar_t)));
        if (text.endsWith(QChar(u'\0')))
            text.chop(1);
        return text.toStdString();
    }
    if (type == REG_DWORD) {
        std::uint32_t number = 0;
        std::memcpy(&number, value.data(), sizeof(number));
        return "&h" + QString::number(number, 16)
                          .rightJustified(8, QLatin1Char('0'))
                          .toUpper()
                          .toStdString();
    }
    return std::string();
}

} // namespace tovrel
