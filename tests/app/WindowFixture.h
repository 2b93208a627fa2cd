#pragma once

#include "app/Controls.h"
#include "platform/TestDoubles.h"
#include "platform/TestFolder.h"
#include "run/RunData.h"

#include <gtest/gtest.h>

namespace tovrel {

/// The state behind the windows, over a settings file of its own.
class WindowFixture : public testing::Test {
protected:
    TestFolder folder_;
    RunData data_{folder_.path(), "Tovrel.ini"};
    ScriptedPrompt prompt_;
};

} // namespace tovrel
