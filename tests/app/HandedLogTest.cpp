#include "app/MainFixture.h"

#include <QMimeData>
#include <QUrl>

namespace tovrel {
namespace {

/// Logs that the program is handed, at its start or by a drop.
class HandedLogTest : public MainFixture {
protected:
    std::string handedLog() {
        return folder_.write("handed over.adi",
                             record({"K1AB", "20", "156", "", "", "", adif("QSL_RCVD", "Y")}));
    }
    void drop(const QMimeData& data) {
        const QPoint at = main_->centralWidget()->geometry().center();
        QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QDropEvent drop(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        for (QDropEvent* event : {static_cast<QDropEvent*>(&enter), &drop}) {
            QApplication::sendEvent(main_->windowHandle(), event);
            EXPECT_TRUE(event->isAccepted());
            EXPECT_EQ(event->dropAction(), Qt::CopyAction);
        }
    }
    void dropFiles(const std::vector<std::string>& paths) {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string& path : paths)
            urls.append(QUrl::fromLocalFile(QString::fromStdString(path)));
        data.setUrls(urls);
        drop(data);
    }
    std::string stored() { return setting("Log", "adifile"); }
};

TEST_F(HandedLogTest, OneOfTheCommandLineIsStoredAndPlotted) {
    furnish();
    start(handedLog());
    EXPECT_TRUE(QTest::qWaitFor([this] { return plotOnMap(); })) << "when the window is at rest";
    EXPECT_EQ(data_->tables.counters.QsosPlotted, 1);
    EXPECT_EQ(stored(), handedLog());
}

TEST_F(HandedLogTest, ADroppedOneIsStoredAndPlottedAfterThePassThatRuns) {
    furnish(20000);
    start();
    QTimer::singleShot(0, main_.get(), [this] { // in the midst of the pass
        dropFiles({handedLog()});
        EXPECT_NE(stored(), handedLog());
    });
    pick("mnuLoadADIF");
    QApplication::processEvents();
    EXPECT_EQ(data_->tables.counters.QsosPlotted, 1);
    EXPECT_EQ(stored(), handedLog());
    EXPECT_TRUE(plotOnMap());
}

TEST_F(HandedLogTest, WhatIsNotOneFileIsRefusedWithAWord) {
    furnish();
    start();
    const std::string before = stored();
    pick("mnuLoadADIF");
    QMimeData text;
    text.setText("<CALL:4>K1AB<EOR>");
    QMimeData link;
    link.setUrls({QUrl("http://localhost/log.adi")});
    const QString notOne = "Please drop one ADIF file onto the map.";
    const QString unreadable = "The ADIF file could not be read.\n";
    const std::pair<std::function<void()>, QString> rows[] = {
        {[&] { drop(text); }, notOne},
        {[&] { drop(link); }, notOne},
        {[this] {
             dropFiles({handedLog(), handedLog()});
         },
         notOne},
        {[this] { dropFiles({folder_.path()}); }, unreadable},
        {[this] { dropFiles({folder_.path("gone.adi")}); }, unreadable}};
    for (const auto& [act, word] : rows) {
        answerMessage(word);
        act();
        QApplication::processEvents();
        EXPECT_EQ(stored(), before);
        EXPECT_TRUE(plotOnMap()) << "what was on the map stays";
    }
}

} // namespace
} // namespace tovrel
