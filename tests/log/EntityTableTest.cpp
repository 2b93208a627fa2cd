#include "log/EntityTable.h"

#include <gtest/gtest.h>
#include <string>

namespace tovrel {
namespace {

TEST(EntityTable, findsTheEntityOfACall) {
    constexpr int none = 0, usa = 291, england = 223, germany = 230, spain = 281, canaries = 29,
                  hawaii = 110, athos = 180, guantanamo = 105, scotland = 279, italy = 248;
    const std::pair<std::string, int> cases[] = {
        {"G4ABC", england},
        {"dl1abc", germany},
        {" K1ABC ", usa},
        {"G4ABC=", england},
        {"", none},
        {"/", none},
        {"QQ1A", none},
        {"TO5A", none},
        {"G4\xC3\x84", none},
        {"DL1-A", none},
        {std::string(100, 'D') + "L", germany},
        {"=", none},
        // The part that names the place.
        {"DL/W1AW", germany},
        {"W1AW/DL", germany},
        {"W1AW/KH6", hawaii},
        {"VP2E/W1AW", 12},
        {"VK9X/G3TXF", 35},
        {"DL1ABC/G", england},
        {"DL1ABC/P", germany},
        {"DL1ABC/QRP", germany},
        {"DL1ABC/LH", germany},
        {"DL1ABC/A", germany},
        {"DL1ABC/YL", 145},
        {"DL1ABC/I", italy},
        {"//DL1ABC//P/", germany},
        {"G4ABC/DL1ABC", england},
        // Call areas.
        {"EA3ABC/8", canaries},
        {"EA8ABC/3", spain},
        {"W1AW/6", usa},
        {"KH6ABC/4", usa},
        {"KL7ABC/1", usa},
        {"EA3ABC/12", spain},
        {"DL/EA3ABC/8", germany},
        // Pairs.
        {"SV2ASP/A", athos},
        {"SV2ASP/P/A", athos},
        {"A/SV2ASP", none},
        {"FR5ZU/G", 99},
        // Four letters that mean Guantanamo now and then.
        {"KG4AB", guantanamo},
        {"KG4", guantanamo},
        {"KG4ABC", usa},
        {"KG4A", usa},
        {"KG4A1", usa},
        // At sea and in the air, but not in front.
        {"G4ABC/MM", none},
        {"G4ABC/am", none},
        {"SV2ASP/A/MM", none},
        {"MM/G4ABC", scotland},
        {"AM/G4ABC", spain},
    };
    EntityTable table;
    for (const auto& [call, code] : cases) {
        const Entity* const entity = table.ofCall(call);
        EXPECT_EQ(entity == nullptr ? none : entity->code, code) << call;
    }
    EXPECT_EQ(table.ofCode(229)->name, "East Germany");
    EXPECT_EQ(table.ofCode(186)->name, "Newfoundland, Labrador");
    EXPECT_EQ(table.ofCode(186)->position.longitude, -52.8);
    for (const int code : {0, -1, 4711})
        EXPECT_EQ(table.ofCode(code), nullptr);
}

} // namespace
} // namespace tovrel
