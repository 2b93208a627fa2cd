#include "run/PictureExport.h"

#include "run/MapSheet.h"
#include "run/TestProgram.h"

#include <QImage>
#include <QPainter>
#include <filesystem>

namespace tovrel {
namespace {

/// A plotted program whose dialog asks for a file.
struct ExportingProgram : PlottedProgram {
    explicit ExportingProgram(PictureOptions options, const std::string& settings = home)
        : PlottedProgram(settings) {
        options.folder = folder.path();
        window.onChoosePicture = [this, options](const PictureWish&) {
            return std::optional(PictureWish{
                options, folder.path("map") + std::string(extensionOf(options.format))});
        };
    }
};

TEST(ExportPicture, ShowsWhatIsOnShowAtManyMorePixelsAndLeavesThatAsItIs) {
    ExportingProgram program({.pixels = 2000, .caption = false});
    program.commands->mnuMeridian();
    const PlotRow& row = program.data->tables.plotTable.rows().at(0);
    program.data->stats.pickStation({"KH6A", row.mapY, row.mapX});
    const QImage before = program.map->Picture2.Image();
    const QImage base = program.map->Picture1.Image();
    const std::string look = program.look();
    program.takeChanges();

    program.commands->mnuExportPicture();
    EXPECT_EQ(program.prompt.told, std::vector<std::string>{"map.png has been saved."});
    EXPECT_FALSE(program.listener.open);
    const QImage image(QString::fromStdString(program.folder.path("map.png")));
    EXPECT_EQ(image.size(), QSize(2000, 2000));
    EXPECT_EQ(image.dotsPerMeterX(), 11811) << "300 dots per inch";
    // The mark of the contact has the share of the map that it has on the screen.
    const int marks = inkOf(program.map->Picture2, confirmedColour).count;
    PictureSurface exported = surfaceOf(image);
    const double scale = 2000.0 / before.width();
    const Ink mark = inkOf(exported, confirmedColour);
    EXPECT_NEAR(mark.count / (scale * scale * marks), 1.0, 0.1);
    EXPECT_NEAR((mark.left + mark.right) / 2.0, exported.pixelX(row.mapX), 2);
    EXPECT_NEAR((mark.top + mark.bottom) / 2.0, exported.pixelY(row.mapY), 2);
    EXPECT_GT(inkOf(exported, homeColour).count, 0);
    EXPECT_GT(inkOf(exported, meridianColour).count, 1000);
    const Ink line = inkOf(exported, program.data->lneGCPlotLine.shape().colour);
    EXPECT_NEAR(line.right, exported.pixelX(0), 5) << "from home";
    EXPECT_NEAR(line.left, exported.pixelX(row.mapX), 5) << "to the station";

    EXPECT_EQ(program.map->Picture2.Image(), before);
    EXPECT_EQ(program.map->Picture1.Image(), base);
    EXPECT_EQ(program.look(), look);
    EXPECT_TRUE(program.data->lneGCPlotLine.shape().visible);
    EXPECT_EQ(program.takeChanges(),
              "PictureOptions.Format=png PictureOptions.Pixels=2000 PictureOptions.Paper=A4 "
              "PictureOptions.Caption=False PictureOptions.Folder=" +
                  program.folder.path() + ' ');

    // What has gone from the screen is in no later picture.
    program.commands->mnuClearMap();
    program.commands->mnuExportPicture();
    exported = surfaceOf(QImage(QString::fromStdString(program.folder.path("map.png"))));
    EXPECT_EQ(inkOf(exported, confirmedColour).count, 0);
    EXPECT_GT(inkOf(exported, meridianColour).count, 1000);
}

TEST(ExportPicture, ReplacesNothingUnasked) {
    ExportingProgram program({.pixels = 1000}, settingsOf(Projection::Miller));
    program.folder.write("map.png", "precious");
    program.prompt.answer = false;
    // After a no the dialog comes again with what was chosen.
    const auto choose = program.window.onChoosePicture;
    program.window.onChoosePicture = [&](const PictureWish& start) {
        return program.window.pictureDialogs.size() < 2 ? choose(start) : std::nullopt;
    };
    program.commands->mnuExportPicture();
    ASSERT_EQ(program.window.pictureDialogs.size(), 2U);
    EXPECT_TRUE(program.window.pictureDialogs[0].path.ends_with("TovrelMP_20110302-070509.png"));
    EXPECT_EQ(program.window.pictureDialogs[1].path, program.folder.path("map.png"));
    EXPECT_EQ(program.prompt.asked.size(), 1U);
    EXPECT_EQ(program.folder.read("map.png"), "precious");
}

TEST(ExportPicture, StopsAtAnyMomentAndLeavesTheOldFile) {
    for (const PictureFormat format : {PictureFormat::Png, PictureFormat::Pdf}) {
        int yields = 0;
        for (int stopAt = 1; stopAt <= 1000; stopAt += std::max(1, yields / 8)) {
            ExportingProgram program({.format = format, .pixels = 1000});
            const std::string name = "map" + std::string(extensionOf(format));
            program.folder.write(name, "precious");
            program.listener.yields = 0;
            program.listener.onYield = [&](int number) {
                program.data->run.AbortRequested = number >= stopAt;
            };
            program.commands->mnuExportPicture();
            EXPECT_FALSE(program.listener.open);
            EXPECT_FALSE(program.data->run.AbortRequested);
            yields = program.listener.yields;
            EXPECT_TRUE(stopAt > 1 || yields == 1) << "nothing more is drawn";
            if (yields < stopAt)
                break; // it ended before
            EXPECT_EQ(program.folder.read(name), "precious") << stopAt;
            EXPECT_TRUE(program.prompt.told.empty());
        }
    }
}

TEST(ExportPicture, TellsWhyAFileCouldNotBeSaved) {
    ExportingProgram program({.pixels = 1000});
    std::filesystem::create_directory(program.folder.path("map.png"));
    const auto choose = program.window.onChoosePicture;
    program.window.onChoosePicture = [&](const PictureWish& start) {
        return program.window.pictureDialogs.size() < 2 ? choose(start) : std::nullopt;
    };
    program.commands->mnuExportPicture();
    ASSERT_EQ(program.window.pictureDialogs.size(), 2U) << "for another file";
    EXPECT_EQ(program.window.pictureDialogs[1].path, program.folder.path("map.png"));
    ASSERT_EQ(program.prompt.told.size(), 1U);
    EXPECT_TRUE(program.prompt.told[0].starts_with("map.png could not be saved.\r\n" +
                                                   program.folder.path("map.png")))
        << program.prompt.told[0];
}

TEST(PictureWish, GivesANameTheExtensionOfItsFormat) {
    const struct {
        PictureFormat format;
        const char *path, *becomes;
    } rows[] = {{PictureFormat::Pdf, "/a.b/map.png", "/a.b/map.pdf"},
                {PictureFormat::Jpeg, "map.JPEG", "map.JPEG"},
                {PictureFormat::Png, "map.JPEG", "map.png"},
                {PictureFormat::Png, "/a.png/field.day", "/a.png/field.day.png"},
                {PictureFormat::Png, "map", "map.png"}};
    for (const auto& row : rows)
        EXPECT_EQ(withExtensionOf(row.format, row.path), row.becomes);
}

TEST(MapCaption, KnowsNoSouthOfZero) {
    PlottedProgram program;
    program.data->run.HomeLatitude = -0.00001F;
    program.data->run.HomeLongitude = -72.7F;
    const QString station = captionOf(*program.data, {}, QDateTime()).station;
    EXPECT_TRUE(station.endsWith(QStringLiteral("0° N, 72.7° W"))) << station.toStdString();
}

TEST(MapCaption, IsNeverCut) {
    MapCaption caption;
    caption.station = QString(90, QLatin1Char('W'));
    caption.log = QStringLiteral("Log: ") + QString(250, QLatin1Char('m'));
    caption.filter = QStringLiteral("Filter: ") + QStringLiteral("160M, ").repeated(30);
    caption.classes.assign(12, {0x000000, 0x0000FF, QStringLiteral("Confirmed 1,000,000")});
    caption.date = QStringLiteral("now");
    constexpr int edge = 50;
    for (const int width : {60, 200, 800}) {
        const CaptionLayout layout(caption, width, 16);
        QImage image(width + 2 * edge, static_cast<int>(layout.height()) + 2 * edge,
                     QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        layout.draw(painter, QPointF(edge, edge));
        painter.end();
        const Ink ink = inkOver(surfaceOf(image), white);
        EXPECT_GE(ink.left, edge - 1) << width;
        EXPECT_LE(ink.left + ink.width(), edge + width + 1) << width;
        EXPECT_GE(ink.top, edge - 1) << width;
        EXPECT_LE(ink.top + ink.height(), image.height() - edge + 1) << width;
        // All of it is there: the letters alone cover more than their number in pixels.
        EXPECT_GT(ink.count, 600 * 16) << width;
    }
}

} // namespace
} // namespace tovrel
