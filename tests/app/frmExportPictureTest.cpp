#include "app/frmExportPicture.h"

#include "app/Controls.h"
#include "platform/ByteText.h"

#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <gtest/gtest.h>

namespace tovrel {
namespace {

TEST(frmExportPicture, TellsSizeAndNameOfWhatWillBeMade) {
    const auto path = [](const char* below) {
        return QDir::toNativeSeparators(QDir::rootPath() + QLatin1String(below));
    };
    const PictureWish start{.options = {.pixels = 3000},
                            .path = byteText(path("pictures/map.png"))};
    frmExportPicture window(start, MapShape{.widthPerHeight = 2});
    window.show();
    const auto result = [&window] { return control<QLabel>(window, "lblResult").text(); };
    const auto file = [&window] { return control<QLineEdit>(window, "txtFile").text(); };
    EXPECT_EQ(result(),
              QStringLiteral("Map 3000 x 1500 pixels, 25.4 x 12.7 cm at 300 dots per inch"));
    click(window, "optPdf");
    EXPECT_EQ(file(), path("pictures/map.pdf"));
    control<QComboBox>(window, "cboPaper").setCurrentText(QStringLiteral("A3"));
    EXPECT_EQ(result(), QStringLiteral("A3 landscape, map 39 x 19.5 cm at 304 dots per inch"));
    EXPECT_TRUE(control(window, "cboPaper").isVisible());
    EXPECT_FALSE(control(window, "txtPixels").isVisible());
    click(window, "optJpeg");
    EXPECT_TRUE(control(window, "txtPixels").isVisible());
    control<QSpinBox>(window, "txtPixels").setValue(20000);
    click(window, "chkCaption");

    auto& box = control<QLineEdit>(window, "txtFile");
    box.setText(QStringLiteral("  %1 ").arg(path("other/night.map")));
    const PictureWish wish = window.wish();
    EXPECT_EQ(wish.path, byteText(path("other/night.map.jpg")));
    EXPECT_EQ(wish.options, (PictureOptions{.format = PictureFormat::Jpeg,
                                            .pixels = 8000,
                                            .paper = Paper::A3,
                                            .caption = false,
                                            .folder = byteText(path("other"))}));
    for (const QString& folder : {path("folder/"), QStringLiteral(".."), QDir::tempPath()}) {
        box.setText(folder);
        EXPECT_FALSE(control(window, "cmdExport").isEnabled()) << byteText(folder);
    }
    box.setText(QStringLiteral("alone"));
    EXPECT_EQ(window.wish().path, byteText(path("pictures/alone.jpg"))) << "beside the last one";
}

} // namespace
} // namespace tovrel
