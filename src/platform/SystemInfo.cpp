#include "platform/SystemInfo.h"

#include "platform/Files.h"

#include <QProcess>

namespace tovrel {

std::string systemInfoTool(const KeyValues& registry) {
    constexpr RegistryRoot root = RegistryRoot::LocalMachine;
    if (const auto tool = registry(root, R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH"))
        return *tool;
    if (const auto folder =
            registry(root, R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO")) {
        std::string tool = *folder + "\\MSINFO32.EXE";
        if (fileExists(tool))
            return tool;
    }
    return {};
}

bool StartSysInfo() {
    const std::string tool = systemInfoTool();
    return !tool.empty() && QProcess::startDetached(QString::fromStdString(tool), {});
}

} // namespace tovrel
