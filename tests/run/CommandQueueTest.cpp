#include "run/CommandQueue.h"

#include <gtest/gtest.h>

namespace tovrel {
namespace {

struct CommandQueueTest : testing::Test {
    /// A command that notes its name, and asks for others midway.
    CommandQueue::Command command(const std::string& name, std::vector<std::string> midway = {}) {
        return [this, name, midway = std::move(midway)] {
            EXPECT_TRUE(queue.busy());
            log += name + "(";
            for (const std::string& other : midway)
                queue.submit(other, command(other));
            log += ")";
        };
    }
    CommandQueue queue;
    std::string log;
};

TEST_F(CommandQueueTest, WhatArrivesMidwayWaitsAndRunsOnceInItsOrder) {
    const Connection ends = queue.commandEnded.connect([this] { log += ";"; });
    queue.submit("a", command("a", {"c", "b", "c", "a", "b", "a"}));
    EXPECT_EQ(log, "a();c();b();a();") << "the running one may be asked for again";
    EXPECT_FALSE(queue.busy());
}

TEST_F(CommandQueueTest, ClosingDropsWhatWaitsAndTakesNothingMore) {
    int ended = 0;
    const Connection ends = queue.commandEnded.connect([&] { ++ended; });
    queue.submit("a", [this] {
        queue.submit("b", command("b"));
        queue.close();
        queue.submit("c", command("c"));
        log += "a";
    });
    queue.submit("d", command("d"));
    EXPECT_EQ(log, "a");
    EXPECT_EQ(ended, 1);
    EXPECT_FALSE(queue.busy());
}

} // namespace
} // namespace tovrel
