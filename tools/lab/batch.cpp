#include "lab/batch.h"

#include "lab/commands.h"

#include <istream>
#include <ostream>
#include <utility>

namespace tavlon12::lab {

namespace {

constexpr std::size_t kLongestLine = 1'000'000;

struct Line {
    std::string Text;
    bool TooLong = false;
};

/// False at the end of the input. What a line has beyond the limit is read and dropped.
bool ReadLine(std::istream& in, Line& line) {
    constexpr int kEnd = std::istream::traits_type::eof();
    std::streambuf& bytes = *in.rdbuf();
    line.Text.clear();
    line.TooLong = false;
    int byte = bytes.sbumpc();
    if (byte == kEnd) return false;
    for (; byte != kEnd && byte != '\n'; byte = bytes.sbumpc()) {
        if (line.Text.size() < kLongestLine) {
            line.Text += static_cast<char>(byte);
        } else {
            line.TooLong = true;
        }
    }
    if (line.Text.ends_with('\r')) line.Text.pop_back();
    return true;
}

/// Copies up to the closing quote; `at` stands behind the opening one and then behind the closing one.
bool TakeQuoted(std::string_view line, char quote, std::size_t& at, std::string& word) {
    constexpr std::string_view kEscapable = "\"\\$`";
    for (; at < line.size(); ++at) {
        if (line[at] == quote) {
            ++at;
            return true;
        }
        bool escapes = quote == '"' && line[at] == '\\' && at + 1 < line.size() &&
                       kEscapable.find(line[at + 1]) != std::string_view::npos;
        if (escapes) ++at;
        word += line[at];
    }
    return false;
}

Failure RunLine(Lab& lab, const Line& line, Report& report) {
    if (line.TooLong) return "the line has more than " + std::to_string(kLongestLine) + " bytes";
    if (line.Text.find('\0') != std::string::npos) return "the line holds a NUL byte";
    std::vector<std::string> words;
    if (Failure failure = SplitWords(line.Text, words)) return failure;
    if (!words.empty() && words[0] == "batch") return "a batch cannot run in a batch";
    return RunCommand(lab, words, report);
}

} // namespace

Failure SplitWords(std::string_view line, std::vector<std::string>& words) {
    constexpr std::string_view kBlanks = " \t";
    words.clear();
    for (std::size_t at = 0;;) {
        at = line.find_first_not_of(kBlanks, at);
        if (at == std::string_view::npos) return std::nullopt;
        std::string word;
        while (at < line.size() && kBlanks.find(line[at]) == std::string_view::npos) {
            const char c = line[at++];
            if (c == '\'' || c == '"') {
                if (!TakeQuoted(line, c, at, word)) return std::string("the quote ") + c + " is not closed";
            } else if (c == '\\') {
                if (at == line.size()) return "a \\ stands at the end of the line";
                word += line[at++];
            } else {
                word += c;
            }
        }
        words.push_back(std::move(word));
    }
}

void RunBatch(Lab& lab, std::istream& in, std::ostream& out) {
    Line line;
    while (out && ReadLine(in, line)) {
        Report report;
        if (Failure failure = RunLine(lab, line, report)) {
            out << "error " << OneLine(*failure) << '\n';
        } else {
            out << report.Output;
        }
        out << ".\n" << std::flush;
    }
}

} // namespace tavlon12::lab
