#include "batch/BatchPlaces.h"

#include "batch/BatchOutput.h"
#include "export/GoogleExport.h"
#include "platform/Files.h"

#include <utility>
#include <vector>

namespace tovrel {

namespace {

struct NamedPath {
    std::string name; ///< the option, or what the file is
    std::string path;
};

/// Files of the program folder that a run may read.
constexpr std::string_view folderFiles[] = {
    "Tovrel.ini",           "TVADIF.txt",        "mapper.pnt",
    "paintma.txt",          "mapper-fine.pnt",   "paintma-fine.txt",
    "Google_Confirmed.png", "Google_Worked.png", "Google_Heard.png"};

/// What a run writes, standard output included.
std::vector<NamedPath> outputsOf(const BatchOptions& options) {
    std::vector<NamedPath> outputs;
    const auto add = [&outputs](const char* name, const std::string& path) {
        if (!path.empty()) {
            outputs.push_back({name, path});
        }
    };
    add("--image", options.image);
    add("--base-map", options.baseMap);
    add("--output", options.output);
    add("--keep-kml", options.keepKml ? options.document : std::string());
    add("--report", options.report);
    return outputs;
}

/// What a run reads and must not replace.
std::vector<NamedPath> inputsOf(const BatchOptions& options) {
    std::vector<NamedPath> inputs;
    if (!isPiped(options.log)) {
        inputs.push_back({"the log", options.log});
    }
    for (const std::string_view name : folderFiles) {
        inputs.push_back({std::string(name), filePath(options.folder, name)});
    }
    return inputs;
}

PlaceFault wrongUse(const NamedPath& output, const std::string& other) {
    return {BatchResult::WrongUse, output.name + ": the file would replace " + other};
}

PlaceFault faultOfStandardOutput(const BatchOptions& options,
                                 const std::vector<NamedPath>& outputs) {
    // A report may follow the tips, a picture or an archive may not.
    std::string taken = options.tips.empty() ? "" : "--tip";
    for (const NamedPath& output : outputs) {
        if (output.path != "-") {
            continue;
        }
        if (!taken.empty() && (taken != "--tip" || output.name != "--report")) {
            return {BatchResult::WrongUse,
                    taken + " and " + output.name + " can't both go to standard output"};
        }
        taken = output.name;
    }
    return {};
}

PlaceFault faultOfSharedPlaces(const BatchOptions& options, const std::vector<NamedPath>& outputs) {
    const std::vector<NamedPath> inputs = inputsOf(options);
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        const NamedPath& output = outputs[i];
        if (output.path == "-" || isDevice(output.path)) {
            continue;
        }
        for (const NamedPath& input : inputs) {
            if (isSamePlace(output.path, input.path)) {
                return wrongUse(output, input.name);
            }
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (outputs[j].path != "-" && isSamePlace(output.path, outputs[j].path)) {
                return wrongUse(output, "that of " + outputs[j].name);
            }
        }
    }
    return {};
}

} // namespace

bool isPiped(const std::string& log) { return log == "-" || isDevice(log); }

void completePlaces(BatchOptions& options) {
    const bool piped = isPiped(options.log);
    const auto [folder, name] = splitPath(options.log);
    const std::size_t dot = name.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > 0;
    const std::string stem(piped ? "log" : hasExtension ? name.substr(0, dot) : name);
    if (options.output.empty() && !piped) {
        options.output = std::string(folder).append(stem).append(".kmz");
    }
    std::string documentName(splitPath(kmlFileNameFor(name)).name);
    if (piped || documentName == ".kml") { // what would remain of a name without an extension
        documentName = stem + ".kml";
    }
    options.document = std::string(splitPath(options.output).folder) + documentName;
}

PlaceFault faultOfPlaces(const BatchOptions& options) {
    const std::vector<NamedPath> outputs = outputsOf(options);
    if (PlaceFault fault = faultOfStandardOutput(options, outputs)) {
        return fault;
    }
    if (PlaceFault fault = faultOfSharedPlaces(options, outputs)) {
        return fault;
    }
    if (!isPiped(options.log)) {
        const FileContent log = readFile(options.log, 0);
        if (log.isUnreadable()) {
            return {BatchResult::FileFailed, "there is no log " + options.log + ": " + log.reason};
        }
        if (log.isMissing()) {
            return {BatchResult::FileFailed,
                    "there is no log " + options.log + ": No such file or directory"};
        }
    }
    for (const NamedPath& output : outputs) {
        const bool stream =
            output.path == "-" || (isDevice(output.path) && output.name != "--output");
        const std::string reason = stream ? std::string() : faultOfPlace(output.path);
        if (!reason.empty()) {
            return {BatchResult::FileFailed, cantText(output.path, "written", reason)};
        }
    }
    return {};
}

} // namespace tovrel
