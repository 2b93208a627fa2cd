#include "platform/Signal.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace tovrel {
namespace {

TEST(Signal, TellsThoseWhoListenAndNobodyElse) {
    std::string told;
    Signal<char> signal;
    std::optional<Connection> first = signal.connect([&](char c) { told += c; });
    {
        const Connection second = signal.connect([&](char c) { told += std::string{c, '\''}; });
        signal('a');
    }
    Connection moved = std::move(*first);
    first.reset();
    signal('b');
    moved = Connection();
    signal('c');
    EXPECT_EQ(told, "aa'b");
}

TEST(Signal, MayEndBeforeItsListenersAndBeforeTheOthersAreTold) {
    std::string told;
    Connection later;
    {
        Signal<> signal;
        const Connection ends = signal.connect([&] { later = Connection(); });
        later = signal.connect([&] { told += "gone"; });
        signal();
        later = signal.connect([&] { told += "outlives"; });
    }
    EXPECT_EQ(told, "");
}

TEST(Signal, IsNotCopiedWithTheStateThatHasIt) {
    int told = 0;
    Signal<> signal;
    const Connection listener = signal.connect([&] { ++told; });
    const Signal<> copy = signal;
    copy();
    signal = Signal<>();
    signal();
    EXPECT_EQ(told, 1);
}

} // namespace
} // namespace tovrel
