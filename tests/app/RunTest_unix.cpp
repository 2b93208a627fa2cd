// Of a folder that nobody may write in: on other systems no test can make one.
#include "app/MainFixture.h"
#include "platform/ReadOnlyFolder_unix.h"

namespace tovrel {
namespace {

TEST_F(MainFixture, TellsAtTheEndThatTheSizeCouldNotBeStored) {
    furnish();
    start();
    main_->resize(main_->size() + QSize(30, 30));
    const ReadOnlyFolder locked(folder_);
    answerMessage("The settings could not be stored.");
    main_->close();
}

} // namespace
} // namespace tovrel
