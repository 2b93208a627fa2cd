#pragma once

#include "export/GoogleExport.h"
#include "export/Unpacked.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"
#include "run/RunData.h"
#include "state/InitSettings.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tovrel {

/// A program folder with dictionary and icons, a folder for the log, and an export between them.
class ExportTest : public testing::Test {
protected:
    ExportTest() {
        (void)FieldTable::CreateFieldDictionary(program.path());
        for (const char* icon : {"Google_Confirmed.png", "Google_Worked.png", "Google_Heard.png"})
            program.write(icon, std::string("picture ") + icon);
        data.ini.WriteIniValue(section::globals, "MyCall", "W1TVR");
        InitSettings(data.ini, data.maps, data.google, data.run);
        data.stats.lists().lstStats = {"of an earlier pass"};
        data.stats.lists().lstPfxNotPlotted.add("W1AW");
        data.tables.counters.QsosPlotted = 7;
        prompt.answer = false;
    }

    static std::string record(const std::string& call, const std::string& fields = {}) {
        return "<CALL:1>" + call + " <APP_LOGGER32_LAT:1>5 <APP_LOGGER32_LNG:1>5 " + fields +
               "<EOR>\r\n";
    }

    void useLog(const std::string& bytes) { data.run.LogFileName = logs.write("log.adi", bytes); }

    ExportEnd exportLog() {
        GoogleExport pass(data.ini, data.google, data.run, data.stats,
                          data.tables.counters.QsosPlotted, listener, prompt,
                          [this](const std::string& path) {
                              opened.push_back(path);
                              return canOpen;
                          });
        return pass.CreateGoogleFile(files);
    }

    std::string documentOf(const std::string& log) {
        useLog(log);
        EXPECT_EQ(exportLog(), ExportEnd::Done);
        return firstEntryOf(logs.read("log.kmz"));
    }

    /// Lets the user act in the yield of the given number, counted over the passes from 1.
    void inYield(int number, std::function<void()> act) {
        listener.onYield = [number, act = std::move(act)](int yield) {
            if (yield == number)
                act();
        };
    }

    TestFolder program;
    TestFolder logs;
    ExportFiles files{logs.path("log.kml"), logs.path("log.kmz")};
    RunData data{program.path(), "Tovrel.ini"};
    ScriptedListener listener;
    ScriptedPrompt prompt;
    std::vector<std::string> opened;
    bool canOpen = true;
};

/// Exports that fail: each tells so once and shows nothing else.
class ExportFailureTest : public ExportTest {
protected:
    void expectFailure(ExportEnd end, const std::string& message, const std::string& left) {
        prompt.told.clear();
        data.stats.lists().lstStats = {"of an earlier pass"};
        EXPECT_EQ(exportLog(), end);
        ASSERT_EQ(prompt.told.size(), 1U);
        EXPECT_TRUE(prompt.told[0].starts_with(message)) << prompt.told[0];
        EXPECT_FALSE(listener.open);
        EXPECT_TRUE(data.stats.lists().lstStats.empty());
        EXPECT_TRUE(prompt.asked.empty() && opened.empty());
        EXPECT_EQ(logs.names(), left);
    }

    static constexpr int many = 2000; // more than a buffer of the document holds
    static std::string manyRecords() {
        std::string log;
        for (int i = 0; i < many; ++i)
            log += record("A1A");
        return log;
    }
};

} // namespace tovrel
