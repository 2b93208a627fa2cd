#include "batch/BatchOptions.h"

#include "batch/OptionTable.h"
#include "platform/ByteText.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace tovrel {

namespace {

/// The lines of the usage on the options of some commands.
std::string usageOf(OptionRule::Of of) {
    constexpr std::size_t helpColumn = 22;
    std::string usage;
    for (const OptionRule& rule : optionRules()) {
        if (rule.of != of) {
            continue;
        }
        std::string line = "  " + std::string(rule.name);
        line.append(rule.value.empty() ? "" : " ").append(rule.value);
        line.resize(std::max(line.size() + 1, helpColumn), ' ');
        for (const char c : rule.help) {
            line += c;
            line.append(c == '\n' ? helpColumn : 0, ' ');
        }
        usage += line + '\n';
    }
    return usage;
}

/// The arguments after the command.
class CommandLine {
public:
    explicit CommandLine(const std::vector<std::string>& arguments) : arguments_(arguments) {
        parsed_.options.command =
            arguments[0] == "plot" ? BatchOptions::Command::Plot : BatchOptions::Command::Kmz;
    }

    ParsedOptions read() {
        bool optionsEnded = false;
        while (next_ < arguments_.size() && parsed_.error.empty()) {
            const std::string& argument = arguments_[next_++];
            if (argument == "--" && !optionsEnded) {
                optionsEnded = true;
            } else if (!optionsEnded && argument.starts_with('-') && argument != "-") {
                takeOption(argument);
            } else if (parsed_.options.log.empty()) {
                parsed_.options.log = argument;
            } else {
                parsed_.error = "more than one log: " + argument;
            }
        }
        if (parsed_.error.empty()) {
            parsed_.error = whatIsMissing();
        }
        return parsed_;
    }

private:
    std::string whatIsMissing() const {
        const BatchOptions& options = parsed_.options;
        if (options.log.empty()) {
            return arguments_[0] + " needs the name of a log, or - for standard input";
        }
        if (options.command == BatchOptions::Command::Plot && options.image.empty() &&
            options.baseMap.empty() && options.report.empty() && options.tips.empty()) {
            return "plot makes nothing without --image, --base-map, --report or --tip";
        }
        if (options.output == "-" && options.keepKml) {
            return "--keep-kml needs a file as --output, to lie beside it";
        }
        const bool page = pictureFormat(options.image) == PictureFormat::Pdf;
        if (options.paper && !page) {
            return "--paper needs an --image that ends in .pdf";
        }
        return page && options.size ? "--size is of pictures; the size of a page is its --paper"
                                    : std::string();
    }

    void takeOption(const std::string& argument) {
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const std::span<const OptionRule> rules = optionRules();
        const auto rule =
            std::find_if(rules.begin(), rules.end(),
                         [&name](const OptionRule& option) { return option.name == name; });
        if (rule == rules.end()) {
            parsed_.error = "unknown option " + name;
            return;
        }
        if (!rule->isOf(parsed_.options.command)) {
            parsed_.error = name + " is no option of " + arguments_[0];
            return;
        }
        const bool attached = equals != std::string::npos;
        if (rule->wanted == nullptr) {
            if (attached) {
                parsed_.error = name + " takes no value";
            }
            rule->take(parsed_.options, {});
            return;
        }
        if (!attached && next_ == arguments_.size()) {
            parsed_.error = name + " needs a value: " + rule->wanted;
            return;
        }
        const std::string value = attached ? argument.substr(equals + 1) : arguments_[next_++];
        if (!rule->take(parsed_.options, value)) {
            parsed_.error = name + ": " + rule->wanted + ", not \"" + value + "\"";
        }
    }

    const std::vector<std::string>& arguments_;
    std::size_t next_ = 1;
    ParsedOptions parsed_;
};

} // namespace

std::optional<PictureFormat> pictureFormat(const std::string& path) {
    return path == "-" ? PictureFormat::Png : formatOfExtension(path);
}

std::string usageText() {
    return "Usage: tovrel-batch plot LOG [options]   draws the map of a log\n"
           "       tovrel-batch kmz LOG [options]    writes the KMZ file\n"
           "       tovrel-batch --help | --version\n"
           "LOG is an ADIF file, a pipe, or - for standard input.\n"
           "\n"
           "Options of both:\n" +
           usageOf(OptionRule::Of::Both) +
           "\n"
           "Options of plot, which needs one of --image, --base-map, --report and --tip:\n" +
           usageOf(OptionRule::Of::Plot) +
           "\n"
           "Options of kmz:\n" +
           usageOf(OptionRule::Of::Kmz) +
           "\n"
           "What no option tells is as the settings of the folder say, or as at a first run.\n"
           "Exit status: 0 done, 1 nothing plotted or placed, 2 wrong use, 3 a file can't be\n"
           "read or written, or is missing.   More, with examples: man tovrel-batch\n";
}

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    for (const std::string& argument : arguments) {
        // Names of files are handled as Unicode; another file's name would come of these bytes.
        if (!isUtf8(argument)) {
            parsed.error = "not UTF-8, and so not usable: " + byteText(displayText(argument));
            return parsed;
        }
    }
    for (const std::string& argument : arguments) {
        if (argument == "--help" || argument == "--version") {
            parsed.options.command =
                argument == "--help" ? BatchOptions::Command::Help : BatchOptions::Command::Version;
            return parsed;
        }
    }
    if (arguments.empty() || (arguments[0] != "plot" && arguments[0] != "kmz")) {
        parsed.error = arguments.empty() ? "no command; try --help"
                                         : "unknown command " + arguments[0] + "; try --help";
        return parsed;
    }
    return CommandLine(arguments).read();
}

} // namespace tovrel
