// Of a folder that nobody may write in: on other systems no test can make one.
#include "platform/ReadOnlyFolder_unix.h"
#include "run/TestProgram.h"

namespace tovrel {
namespace {

TEST(Start, ThatChangesNoSettingWritesNoFile) {
    TestProgram program(home);
    program.start();
    program.restart();
    program.start(); // repairs the key that a first run leaves out
    const ReadOnlyFolder locked(program.folder);
    program.restart();
    program.start();
    EXPECT_FALSE(program.data->ini.takeFailure()) << "of a write";
    EXPECT_TRUE(program.prompt.told.empty());
}

TEST(Start, ACacheThatCantBeWrittenServesFromMemory) {
    TestProgram program(home);
    const ReadOnlyFolder locked(program.folder);
    program.start();
    program.map->ResetMap();
    EXPECT_EQ(program.look(), "world home ") << "the map never goes blank";
    program.commands->mnuMiller();
    EXPECT_EQ(program.look(), "world home ");
    EXPECT_EQ(program.folder.names(), "Tovrel.ini mapper.pnt paintma.txt ");
    const auto failure = [&program](const char* what, const char* file) {
        return what + std::string("\r\n") + program.folder.path(file) + "\r\nPermission denied";
    };
    EXPECT_EQ(program.prompt.told,
              (std::vector{failure("The tag list could not be created.", "TVADIF.txt"),
                           failure("The base map could not be stored.", "GCBaseMap.map"),
                           failure("The base map could not be stored.", "MillerBaseMap.map")}));
    EXPECT_EQ(program.data->ini.takeFailure().value().what, "The settings could not be stored.");
}

} // namespace
} // namespace tovrel
