// Makes an ADIF log for the benchmarks: the same bytes for the same count.
//
//     make_log COUNT FILE [SPOT]
//
// Records of about 370 bytes in 20 fields, as a logging program writes them. Contacts lie all over
// the world, or, with SPOT given, all at one place.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

namespace {

constexpr std::array<std::string_view, 10> bands = {"160M", "80M", "40M", "30M", "20M",
                                                    "17M",  "15M", "12M", "10M", "6M"};
constexpr std::array<std::string_view, 4> modes = {"SSB", "CW", "FT8", "RTTY"};

class LogMaker {
public:
    explicit LogMaker(bool oneSpot) : oneSpot_(oneSpot) {}

    const std::string& record(long number) {
        record_.clear();
        add("CALL", call());
        add("BAND", bands[below(bands.size())]);
        add("MODE", modes[below(modes.size())]);
        add("QSO_DATE", "20100101");
        add("TIME_ON", "120000");
        add("TIME_OFF", "120100");
        add("FREQ", "14.025");
        add("RST_SENT", "599");
        add("RST_RCVD", "599");
        add("COUNTRY", "Country " + std::to_string(number % 300));
        add("APP_LOGGER32_LAT", oneSpot_ ? "47.1234" : degrees(85.0));
        add("APP_LOGGER32_LNG", oneSpot_ ? "-8.4321" : degrees(180.0));
        add("QSL_RCVD", below(2) == 0 ? "Y" : "N");
        add("EQSL_QSL_RCVD", "N");
        add("LOTW_QSL_RCVD", below(2) == 0 ? "Y" : "N");
        add("CQZ", "14");
        add("ITUZ", "28");
        add("APP_LOGGER32_QSO_NUMBER", std::to_string(number));
        add("OPERATOR", "W1TVR");
        add("IOTA", "EU-005");
        return record_ += "<EOR>\r\n";
    }

private:
    void add(std::string_view tag, std::string_view value) {
        record_.append("<").append(tag).append(":").append(std::to_string(value.size()));
        record_.append(">").append(value).append(" ");
    }

    std::size_t below(std::size_t end) { return random_() % end; }

    std::string call() {
        const auto letter = [this] { return static_cast<char>('A' + below(26)); };
        std::string text{letter(), letter(), static_cast<char>('0' + below(10)),
                         letter(), letter(), letter()};
        constexpr std::size_t oneHeardIn = 32;
        return below(oneHeardIn) == 0 ? text + '=' : text;
    }

    /// Evenly from -most to most, four places after the point.
    std::string degrees(double most) {
        const double share = static_cast<double>(random_()) / static_cast<double>(random_.max());
        std::array<char, 32> text;
        const int length = std::snprintf(text.data(), text.size(), "%.4f", (2 * share - 1) * most);
        return {text.data(), static_cast<std::size_t>(length)};
    }

    // The engine is the same on every machine; the library's distributions are not.
    std::mt19937_64 random_{1};
    bool oneSpot_;
    std::string record_;
};

} // namespace

int main(int argc, char* argv[]) {
    if (argc < 3) {
        std::fputs("usage: make_log COUNT FILE [SPOT]\n", stderr);
        return 2;
    }
    std::FILE* const file = std::fopen(argv[2], "wb");
    if (file == nullptr) {
        std::perror(argv[2]);
        return 1;
    }
    std::fputs("A log made for benchmarks\r\n<ADIF_VER:5>3.1.0 <EOH>\r\n", file);
    LogMaker maker(argc > 3);
    const long count = std::atol(argv[1]);
    for (long number = 0; number < count; ++number) {
        const std::string& record = maker.record(number);
        std::fwrite(record.data(), 1, record.size(), file);
    }
    const bool failed = std::ferror(file) != 0;
    return std::fclose(file) != 0 || failed ? 1 : 0;
}
