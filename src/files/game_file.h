#pragma once

#include "files/file_text.h"
#include "files/variant_file.h"
#include "rules/notation.h"
#include "rules/rule_set.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavlon12 {

/// What the head of a game file says.
struct GameHead {
    std::string VariantFile = kDefaultVariant;
    std::string StartDigits; ///< the position that the game began from; empty for that of the definition
    Long BookOpen = 1;
    Byte Notation = kAlgebraic; ///< as the user has it, 0 to 2; the squares of the file are written so
    RuleSet Rules;              ///< in force; `Setup` is no part of the file
    Long UseClassic = 1;
    std::string UserName;

    bool operator==(const GameHead&) const = default;
};

/// A line of the moves: a comment, or the key of the half-move that is made next ("c3d4", "15 9", one square for a
/// placement) as it stands in the file.
struct GameFileLine {
    enum class Kind { Comment, Move } What = Kind::Move;
    std::string Text;  ///< of a comment with its line breaks as CR LF
    Long Position = 0; ///< half-moves before it: a comment belongs to that position

    bool operator==(const GameFileLine&) const = default;
};

struct GameFile {
    GameHead Head;
    std::vector<GameFileLine> Lines; ///< up to the first empty line

    // Of a file that was read
    std::vector<std::string_view> Keys;   ///< those that its head holds, in its order; movements by their rule keys
    std::optional<GameHead> AtUseClassic; ///< as read when `UseClassic` stood: the definition is loaded and the start
                                          ///< position placed with these values; none without that line
};

/// Whether the head of a file holds a key.
bool HasKey(const GameFile& game, std::string_view key);

/// Reads the bytes of a game file. A key that is absent keeps its value of `kept`. Fails as `FormatFailure` does, on
/// a value out of the range of its kind, and when the file ends inside its head; `kept` plays no part in a failure.
Outcome<GameFile> ReadGameFile(std::string_view bytes, const GameHead& kept);

/// The lines behind the head, empty ones and those behind them included; 0 for a file without a whole head.
Long GameLineCount(std::string_view bytes);

/// How promotion squares are written: the used ones of the first 16 in small letters, or all 20 slots in capitals.
enum class PromotionSlots { Used, All };

/// The bytes of a game file. What would break a line in a name is written as a blank; a comment that is empty has no
/// line.
std::string GameFileText(const GameHead& head, std::span<const GameFileLine> lines,
                         PromotionSlots slots = PromotionSlots::Used);

/// The rule keys that a game carries with it, in the order of its forms, but for the movements and
/// `ManContJumpCrowned`, which follow in this order.
std::span<const std::string_view> GameRuleOrder();
std::span<const std::string_view> MovementOrder();
inline constexpr std::string_view kLastGameRule = "ManContJumpCrowned";

/// The text with each CR and LF as a blank.
std::string OneLine(std::string_view text);

} // namespace tavlon12
