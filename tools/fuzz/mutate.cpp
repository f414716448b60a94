// hlyd-mutate SEED IN OUT: writes IN with a few random changes to OUT, the same for the same SEED.
// The changes are those that reach the readers' edges: bytes flipped, runs cut out or repeated,
// lines doubled, and words that mean something to a source, project or settings reader.
// hlyd-mutate --settings SEED PRINTER OUT: writes a settings file of page, font and heading keys
// at their edges for printing on PRINTER.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "settings_fuzz.h"

namespace {

const std::vector<std::string> kWords = {"\r",
                                         "\n",
                                         "\r\n",
                                         " _",
                                         " _\r\n",
                                         ":",
                                         "\"",
                                         "'",
                                         "=",
                                         ";",
                                         "#",
                                         "[",
                                         "]",
                                         "(",
                                         ")",
                                         ",",
                                         ".",
                                         "\\",
                                         "..\\",
                                         std::string(1, '\0'),
                                         "\xff",
                                         "\xe9",
                                         "\x1a",
                                         "\t",
                                         "Begin ",
                                         "End\r\n",
                                         "BeginProperty ",
                                         "EndProperty\r\n",
                                         "Sub ",
                                         "End Sub\r\n",
                                         "Function ",
                                         "Property Get ",
                                         "Property Let ",
                                         "If ",
                                         " Then ",
                                         "Else",
                                         "End If",
                                         "Select Case ",
                                         "Do\r\n",
                                         "Loop\r\n",
                                         "With ",
                                         "Type ",
                                         "Enum ",
                                         "#If ",
                                         "#End If",
                                         "Rem ",
                                         "Attribute VB_Name = \"M\"\r\n",
                                         "VERSION 5.00\r\n",
                                         "VBGROUP 5.0\r\n",
                                         "Project=",
                                         "StartupProject=",
                                         "Form=",
                                         "Module=",
                                         "Class=",
                                         "UserControl=",
                                         "Reference=*\\G{0}#2.0#0#",
                                         "Object={0}#1.0#0; ",
                                         "99999999999",
                                         "-99999999999",
                                         "32767",
                                         "32768",
                                         "-32769",
                                         "40000",
                                         "65536",
                                         "2147483648",
                                         "4294967296",
                                         "-1",
                                         "0",
                                         "1e999",
                                         "Yes",
                                         "No",
                                         "[General]\r\n",
                                         "[Display]\r\n",
                                         "[Format]\r\n",
                                         "[Debug]\r\n",
                                         "LogFile=",
                                         "CurrentPrinter="};

class Mutator {
public:
    explicit Mutator(unsigned seed) : rng_(seed) {}

    void mutate(std::string& data) {
        int changes = 1 + pick(8);
        for (int i = 0; i < changes; ++i) changeOnce(data);
    }

private:
    std::size_t pick(std::size_t n) { return n == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, n - 1)(rng_); }

    void changeOnce(std::string& data) {
        std::size_t at = pick(data.size() + 1);
        switch (pick(7)) {
            case 0:
                if (!data.empty()) data[pick(data.size())] ^= static_cast<char>(1u << pick(8));
                break;
            case 1: data.insert(at, kWords[pick(kWords.size())]); break;
            case 2: data.erase(at, pick(64)); break;
            case 3: data.insert(at, data.substr(at, pick(256))); break;
            case 4: repeatLine(data, at); break;
            case 5: data.insert(at, std::string(pick(4096), " _:x\"\r\n"[pick(7)])); break;
            default: replaceNumber(data, at); break;
        }
    }

    // One line written many times over: long files and 16-bit counts.
    void repeatLine(std::string& data, std::size_t at) {
        std::size_t begin = data.rfind('\n', at == 0 ? 0 : at - 1);
        begin = begin == std::string::npos ? 0 : begin + 1;
        std::size_t end = data.find('\n', at);
        if (end == std::string::npos) return;
        std::string line = data.substr(begin, end - begin + 1);
        std::size_t times = pick(3) == 0 ? 33000 : pick(100);
        std::string many;
        for (std::size_t i = 0; i < times && many.size() < (8u << 20); ++i) many += line;
        data.insert(end + 1, many);
    }

    void replaceNumber(std::string& data, std::size_t at) {
        std::size_t digit = data.find_first_of("0123456789", at);
        if (digit == std::string::npos) return;
        std::size_t end = data.find_first_not_of("0123456789", digit);
        static const char* const kNumbers[] = {"99999999999", "-99999999999", "32768",      "-32769",
                                               "40000",       "2147483648",   "4294967296", "0",
                                               "-1",          "1.5",          "999e9"};
        data.replace(digit, (end == std::string::npos ? data.size() : end) - digit,
                     kNumbers[pick(sizeof kNumbers / sizeof *kNumbers)]);
    }

    std::mt19937 rng_;
};

}  // namespace

int main(int argc, char** argv) {
    if (argc == 5 && std::string(argv[1]) == "--settings") {
        std::ofstream out(argv[4], std::ios::binary | std::ios::trunc);
        out << hlyd::fuzz::fuzzedSettings(static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10)), argv[3]);
        return out ? 0 : 2;
    }
    if (argc != 4) {
        std::cerr << "usage: hlyd-mutate SEED IN OUT\n       hlyd-mutate --settings SEED PRINTER OUT\n";
        return 2;
    }
    std::ifstream in(argv[2], std::ios::binary);
    if (!in) {
        std::cerr << "hlyd-mutate: cannot read " << argv[2] << '\n';
        return 2;
    }
    std::string data((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    Mutator(static_cast<unsigned>(std::strtoul(argv[1], nullptr, 10))).mutate(data);
    std::ofstream out(argv[3], std::ios::binary | std::ios::trunc);
    out << data;
    return out ? 0 : 2;
}
