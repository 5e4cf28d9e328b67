#include "lab/options.h"

#include "rules/board.h"
#include "rules/notation.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

namespace tavlon12::lab {

namespace {

constexpr std::array<std::pair<std::string_view, Command>, 5> kCommands = {{
    {"moves", Command::Moves},
    {"perft", Command::Perft},
    {"eval", Command::Eval},
    {"search", Command::Search},
    {"bench", Command::Bench},
}};

constexpr unsigned CommandBit(Command command) {
    return 1u << static_cast<unsigned>(command);
}

constexpr unsigned kEvery = ~0u;
constexpr unsigned kMoves = CommandBit(Command::Moves);
constexpr unsigned kPerft = CommandBit(Command::Perft);
constexpr unsigned kEval = CommandBit(Command::Eval);
constexpr unsigned kSearch = CommandBit(Command::Search);
constexpr unsigned kBench = CommandBit(Command::Bench);

constexpr Long kMaxDepth = 20;
constexpr Long kMaxSeconds = 3600;

bool ParseWhole(std::string_view text, Long minimum, Long maximum, Long& value) {
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() && value >= minimum && value <= maximum;
}

/// A whole number in a range, for any integer member.
template <typename Number> Failure ReadWhole(std::string_view text, Long minimum, Long maximum, Number& value) {
    Long number = 0;
    if (!ParseWhole(text, minimum, maximum, number)) {
        return "must be a whole number from " + std::to_string(minimum) + " to " + std::to_string(maximum);
    }
    value = static_cast<Number>(number);
    return std::nullopt;
}

Failure ReadSide(std::string_view text, std::optional<Long>& side) {
    if (text != "white" && text != "black") return "must be white or black";
    side = text == "white" ? kWhite : kBlack;
    return std::nullopt;
}

Failure ReadSetup(std::string_view text, Options& options) {
    auto bad = std::find_if(text.begin(), text.end(), [](char c) { return c < '0' || c > '4'; });
    if (bad != text.end()) {
        return "character " + std::to_string(bad - text.begin() + 1) + " is " + Quoted(std::string_view(&*bad, 1)) +
               ", must be a digit from 0 to 4";
    }
    if (text.size() != kSquareCount) {
        return "has " + std::to_string(text.size()) + " digits, must have " + std::to_string(kSquareCount);
    }
    options.Setup = text;
    return std::nullopt;
}

Failure ReadOffBoard(std::string_view text, Options& options) {
    constexpr Long kMost = std::numeric_limits<Long>::max();
    std::size_t comma = std::min(text.find(','), text.size());
    std::array<Long, 2> pieces{};
    if (comma == text.size() || !ParseWhole(text.substr(0, comma), 0, kMost, pieces[0]) ||
        !ParseWhole(text.substr(comma + 1), 0, kMost, pieces[1])) {
        return "must be two whole numbers from 0 on with a comma between them";
    }
    options.OffBoard = pieces;
    return std::nullopt;
}

Failure ReadLast(std::string_view text, Options& options) {
    Long square = 0;
    if (!ParseWhole(text, 0, kLastSquare, square) || (square != 0 && !IsSquare(square))) {
        return "must be the index of a square, 29 to 194 without the border, or 0";
    }
    options.Last = square;
    return std::nullopt;
}

bool IsSquareText(std::string_view text) {
    return text.size() == 2 && SquareNumber(text, kAlgebraic, 1) != 0;
}

Failure ReadPlay(std::string_view text, Options& options) {
    while (true) {
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        if (text.empty()) return std::nullopt;
        std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(word.size());
        std::string key = UpperCase(word);
        bool isKey = key.size() == 2 ? IsSquareText(key)
                                     : key.size() == 4 && IsSquareText(key.substr(0, 2)) && IsSquareText(key.substr(2));
        if (!isKey) {
            return "move " + std::to_string(options.Play.size() + 1) + ", " + Quoted(word) +
                   ", is no move key such as c3d4";
        }
        options.Play.push_back(std::move(key));
    }
}

Failure UseMembers(Members members, Options& options) {
    if (options.Use != Members::OfGame) {
        return std::string("cannot stand beside ") + (members == Members::Fast ? "--general" : "--fast");
    }
    options.Use = members;
    return std::nullopt;
}

/// One option. `Read` takes the value, or an empty text when the option has none.
struct OptionRow {
    std::string_view Name;
    unsigned Commands; ///< bits of the commands that know it
    bool TakesValue;
    Failure (*Read)(std::string_view value, Options& options);
};

constexpr OptionRow kOptions[] = {
    {"--variants", kEvery, true,
     [](std::string_view value, Options& options) -> Failure {
         if (value.empty()) return "must name a folder";
         options.Variants = value;
         return std::nullopt;
     }},
    {"--variant", kEvery, true,
     [](std::string_view value, Options& options) -> Failure {
         if (value.empty()) return "must name a definition";
         options.Variant = value;
         return std::nullopt;
     }},
    {"--rule", kEvery, true,
     [](std::string_view value, Options& options) -> Failure {
         if (value.find('=') == std::string_view::npos) return "must have the form KEY=VALUE";
         options.Rules.emplace_back(value);
         return std::nullopt;
     }},
    {"--setup", kEvery, true, &ReadSetup},
    {"--turn", kEvery, true, [](std::string_view value, Options& options) { return ReadSide(value, options.Turn); }},
    {"--offboard", kEvery, true, &ReadOffBoard},
    {"--last", kEvery, true, &ReadLast},
    {"--play", kEvery, true, &ReadPlay},
    {"--depth", kPerft | kSearch, true,
     [](std::string_view value, Options& options) { return ReadWhole(value, 1, kMaxDepth, options.Depth); }},
    {"--divide", kPerft, false,
     [](std::string_view, Options& options) -> Failure {
         options.Divide = true;
         return std::nullopt;
     }},
    {"--side", kEval, true, [](std::string_view value, Options& options) { return ReadSide(value, options.Side); }},
    {"--plys", kSearch, true,
     [](std::string_view value, Options& options) { return ReadWhole(value, 1, 6, options.Search.Plys); }},
    {"--balance", kSearch, true,
     [](std::string_view value, Options& options) { return ReadWhole(value, 1, 750, options.Search.Balance); }},
    {"--extended", kSearch, true,
     [](std::string_view value, Options& options) { return ReadWhole(value, 0, 1, options.Search.ExtendedSearch); }},
    {"--bruteforce", kSearch, true,
     [](std::string_view value, Options& options) { return ReadWhole(value, 0, 1, options.Search.BruteForce); }},
    {"--general", kSearch, false,
     [](std::string_view, Options& options) { return UseMembers(Members::General, options); }},
    {"--fast", kMoves | kPerft | kEval | kSearch, false,
     [](std::string_view, Options& options) { return UseMembers(Members::Fast, options); }},
    {"--seconds", kBench, true,
     [](std::string_view value, Options& options) {
         return ReadWhole(value, 1, kMaxSeconds, options.Seconds.emplace());
     }},
};

constexpr std::string_view kRepeatable = "--rule";

const OptionRow* FindOption(std::string_view name) {
    auto found = std::ranges::find(kOptions, name, &OptionRow::Name);
    return found == std::end(kOptions) ? nullptr : found;
}

Failure ReadCommand(std::string_view word, Options& options) {
    auto found = std::ranges::find(kCommands, word, &std::pair<std::string_view, Command>::first);
    if (found == kCommands.end()) {
        return "unknown command " + Quoted(word) + ", must be moves, perft, eval, search, bench, games, load or batch";
    }
    options.Name = found->second;
    return std::nullopt;
}

} // namespace

Failure ParseOptions(std::span<const std::string> words, Options& options) {
    if (words.empty()) return "no command, must be moves, perft, eval, search, bench, games, load or batch";
    if (Failure failure = ReadCommand(words[0], options)) return failure;

    std::vector<const OptionRow*> given;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const OptionRow* row = FindOption(words[i]);
        if (row == nullptr) return "unknown argument " + Quoted(words[i]);
        const std::string name(row->Name);
        if ((row->Commands & CommandBit(options.Name)) == 0) return name + " is no option of " + words[0];
        if (row->Name != kRepeatable && std::ranges::find(given, row) != given.end()) return name + " is given twice";
        given.push_back(row);
        if (!row->TakesValue) {
            if (Failure failure = row->Read("", options)) return name + " " + *failure;
            continue;
        }
        if (i + 1 == words.size()) return name + " has no value";
        const std::string& value = words[++i];
        if (Failure failure = row->Read(value, options)) return name + " " + Quoted(value) + ": " + *failure;
    }
    bool needsDepth = options.Name == Command::Perft || options.Name == Command::Search;
    if (needsDepth && options.Depth == 0) return "--depth is missing";
    return std::nullopt;
}

std::string Quoted(std::string_view text) {
    constexpr std::size_t kShown = 60;
    if (text.size() <= kShown) return "\"" + std::string(text) + "\"";
    return "\"" + std::string(text.substr(0, kShown)) + "...\"";
}

std::string OneLine(std::string_view text) {
    constexpr std::size_t kShown = 1000;
    std::string line(text.substr(0, kShown));
    auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; };
    std::ranges::replace_if(line, isControl, '?');
    return line;
}

} // namespace tavlon12::lab
