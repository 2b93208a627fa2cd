// Of full disks, which other systems can't be made to pretend.
#include "export/ExportFixture.h"
#include "platform/WriteLimit_unix.h"

namespace tovrel {
namespace {

TEST_F(ExportFailureTest, ofTheDocumentOnAFullDiskIsSeenAtOnce) {
    useLog(manyRecords());
    const WriteLimit fullDisk(300'000);
    expectFailure(ExportEnd::DocumentFailed,
                  "The Google Earth document could not be written.\r\n" + files.KmlFileName +
                      "\r\nFile too large",
                  "log.adi ");
    EXPECT_LT(listener.yields, 2 * many) << "not at the end of the last pass";
}

TEST_F(ExportFailureTest, ofTheArchiveOnAFullDiskLeavesTheDocumentAndTheOldArchive) {
    useLog(record("A1A"));
    logs.write("log.kmz", "old");
    // Room for the document, but not for the document and three icons that don't compress.
    std::string noise;
    for (unsigned i = 1; noise.size() < 100'000; i = i * 1664525U + 1013904223U)
        noise += static_cast<char>(i >> 24U);
    program.write("Google_Heard.png", noise);
    const WriteLimit fullDisk(50'000);
    expectFailure(ExportEnd::ArchiveFailed,
                  "The Google Earth file could not be created.\r\n" + files.archive,
                  "log.adi log.kml log.kmz ");
    EXPECT_EQ(logs.read("log.kmz"), "old");
}

} // namespace
} // namespace tovrel
