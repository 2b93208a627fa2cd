#include "log/EntityTable.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tovrel {
namespace {

TEST(EntityTable, findsTheEntityOfACall) {
    const std::pair<const char*, std::vector<std::string>> entities[] = {
        {"none",
         {"", "/", "=", "QQ1A", "TO5A", "G4\xC3\x84", "DL1-A", "A/SV2ASP", "G4ABC/MM", "G4ABC/am",
          "SV2ASP/A/MM"}},
        {"Germany",
         {"dl1abc", std::string(100, 'D') + "L", "DL/W1AW", "W1AW/DL", "DL1ABC/P", "DL1ABC/QRP",
          "DL1ABC/LH", "//DL1ABC//P/", "DL/EA3ABC/8"}},
        {"England", {"G4ABC", "G4ABC=", "DL1ABC/G", "G4ABC/DL1ABC"}},
        {"Italy", {"DL1ABC/I"}},
        {"Latvia", {"DL1ABC/YL"}},
        {"Anguilla", {"VP2E/W1AW"}},
        {"Christmas Island", {"VK9X/G3TXF"}},
        // Call areas; of the United States those beside them, too.
        {"Spain", {"EA8ABC/3", "EA3ABC/12", "AM/G4ABC"}},
        {"Canary Islands", {"EA3ABC/8"}},
        {"Hawaii", {"W1AW/KH6"}},
        {"United States of America",
         {" K1ABC ", "W1AW/6", "KH6ABC/4", "KL7ABC/1", "KG4ABC", "KG4A", "KG4A1"}},
        {"Guantanamo Bay", {"KG4AB", "KG4"}}, // which calls of four letters mean now and then
        // Pairs; and marks of ships and aircraft in front are none.
        {"Mount Athos", {"SV2ASP/A", "SV2ASP/P/A"}},
        {"Glorioso Islands", {"FR5ZU/G"}},
        {"Scotland", {"MM/G4ABC"}},
    };
    EntityTable table;
    for (const auto& [name, calls] : entities) {
        for (const std::string& call : calls) {
            const Entity* const entity = table.ofCall(call);
            EXPECT_EQ(entity == nullptr ? "none" : entity->name, name) << call;
        }
    }
    EXPECT_EQ(table.ofCode(229)->name, "East Germany");
    EXPECT_EQ(table.ofCode(186)->name, "Newfoundland, Labrador");
    EXPECT_EQ(table.ofCode(186)->position.longitude, -52.8);
    for (const int code : {0, -1, 4711})
        EXPECT_EQ(table.ofCode(code), nullptr);
}

} // namespace
} // namespace tovrel
