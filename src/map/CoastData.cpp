#include "map/CoastData.h"

#include "platform/Files.h"

#include <QCryptographicHash>
#include <algorithm>
#include <string_view>
#include <utility>

namespace tovrel {

namespace {

/// A file by its name and as messages spell it.
struct DataFile {
    std::string_view name;
    const char* shownName;
};

constexpr DataFile coarseCoast = {"mapper.pnt", "Mapper.pnt"};
constexpr DataFile coarseSeeds = {"paintma.txt", "paintma.txt"};
constexpr DataFile fineCoast = {"mapper-fine.pnt", "mapper-fine.pnt"};
constexpr DataFile fineSeeds = {"paintma-fine.txt", "paintma-fine.txt"};

// Of the coarse files in data/, by the build.
constexpr std::string_view shippedCoastSum = TOVREL_COAST_SHA256;
constexpr std::string_view shippedSeedsSum = TOVREL_SEEDS_SHA256;

bool hasSum(std::string_view bytes, std::string_view sum) {
    const QByteArray found = QCryptographicHash::hash(
        QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size())),
        QCryptographicHash::Sha256);
    return found.toHex() == QByteArray::fromRawData(sum.data(), static_cast<qsizetype>(sum.size()));
}

/// Reads the data files of a map, and keeps what became of them.
class DataFiles {
public:
    DataFiles(const std::string& programFolder, UserPrompt& prompt, DataFilesEnd& end)
        : programFolder_(programFolder), prompt_(prompt), end_(end) {}

    /// The bytes of a file that there has to be.
    std::optional<std::string> read(const DataFile& file) {
        FileContent content = readFile(filePath(programFolder_, file.name));
        if (content.isMissing()) {
            end_.missing = true;
            prompt_.tell("The databse file '" + std::string(file.shownName) + "' not found.",
                         MessageIcon::Exclamation);
        }
        return served(file, std::move(content));
    }

    /// The bytes of a file that may be missing.
    std::optional<std::string> readIfThere(const DataFile& file) {
        return served(file, readFile(filePath(programFolder_, file.name)));
    }

    /// The records of a coastline, none when it is damaged.
    std::vector<CoastRecord> coastline(const DataFile& file, std::string_view bytes) {
        std::vector<CoastRecord> records = readCoastRecords(bytes);
        if (std::none_of(records.begin(), records.end(), startsStroke)) {
            tellUnreadable(file, "The file is damaged: no coastline begins in it");
            records.clear();
        }
        return records;
    }

private:
    std::optional<std::string> served(const DataFile& file, FileContent content) {
        if (content.isUnreadable())
            tellUnreadable(file, content.reason);
        return content ? std::optional(std::move(content.bytes)) : std::nullopt;
    }

    void tellUnreadable(const DataFile& file, const std::string& reason) {
        end_.unreadable = true;
        prompt_.tellFailure(
            {FileFailure::Act::Read,
             "The databse file '" + std::string(file.shownName) + "' could not be read.",
             filePath(programFolder_, file.name), reason});
    }

    const std::string& programFolder_;
    UserPrompt& prompt_;
    DataFilesEnd& end_;
};

} // namespace

CoastData readCoastData(const std::string& programFolder, double resolution, UserPrompt& prompt,
                        DataFilesEnd& end) {
    DataFiles files(programFolder, prompt, end);
    CoastData data;
    const std::optional<std::string> coast = files.read(coarseCoast);
    data.seeds = files.read(coarseSeeds);
    if (resolution > 1.0 && coast && data.seeds && hasSum(*coast, shippedCoastSum) &&
        hasSum(*data.seeds, shippedSeedsSum)) {
        const std::optional<std::string> finer = files.readIfThere(fineCoast);
        std::optional<std::string> finerSeeds = files.readIfThere(fineSeeds);
        if (finer && finerSeeds)
            data.coastline = files.coastline(fineCoast, *finer);
        if (!data.coastline.empty()) {
            data.seeds = std::move(finerSeeds);
            data.seedRule = SeedRule::InPlace;
            return data;
        }
    }
    if (coast)
        data.coastline = files.coastline(coarseCoast, *coast);
    return data;
}

} // namespace tovrel
