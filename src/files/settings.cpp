#include "files/settings.h"

#include "files/text_item.h"
#include "rules/rule_keys.h"

#include <algorithm>

namespace tavlon12 {

namespace {

// The settings file is a fixed sequence of lines without keys: a header of the word "TAVLON12" and the format's
// version, then one value a line. A number has a blank before it, unless it is negative, and one behind it; a text is
// written as it is. There is no other version to read: a file with another header is replaced.
//
//     TAVLON120.89
//      0
//      1
//      2
//     ... and so on to the 84th line

template <auto Member> SettingRow::Value User(StoredSettings& stored) {
    return &(stored.User.*Member);
}

template <auto Member> SettingRow::Value Limit(StoredSettings& stored) {
    return &(stored.User.Limits.*Member);
}

template <auto Member> SettingRow::Value Search(StoredSettings& stored) {
    return &(stored.User.Search.*Member);
}

SettingRow::Value Variant(StoredSettings& stored) {
    return &stored.VariantFile;
}

constexpr auto kRule = nullptr;
constexpr bool kWholeLine = true;

// clang-format off
const SettingRow kRows[] = {
    {"PlayMode", User<&UserSettings::PlayMode>, "", "", 0, 2},
    {"StrengthStep", Limit<&SearchLimits::StrengthStep>, "Strength", "How well the computer plays: below \"Hard\" it blunders by chance.", 0, 9},
    {"DepthLimit", Limit<&SearchLimits::DepthLimit>, "&Depth:", "The computer stops when it has looked this many half-moves ahead.", 1, 20},
    {"Notation", User<&UserSettings::Notation>, "", "", kAlgebraic, kNoLabels},
    {"BoardTurned", User<&UserSettings::BoardTurned>},
    {"MaxCapMove", kRule},
    {"MulJumps", kRule},
    {"ShowAvailableMoves", User<&UserSettings::ShowAvailableMoves>, "&Show available moves", "Boxes the pieces that can move, and where the one in hand can go."},
    {"BlackStarts", kRule},
    {"VariantFile", Variant, "", "", 0, 0, kWholeLine},
    {"PiecesOnBlack", kRule},
    {"AntiMode", kRule},
    {"WinAtPromo", kRule},
    {"TimeLimit", Limit<&SearchLimits::TimeLimit>, "&Time:", "The computer stops after this many seconds.", 1, 180},
    {"FixedDepth", Limit<&SearchLimits::FixedDepth>},
    {"ChessDraws", User<&UserSettings::ChessDraws>, "Use Chess &drawing rules (position repetition and 50 moves rule)", "A position that comes for the third time, or too many moves without a capture or a promotion, is a draw."},
    {"MaxCapMoveKings", kRule},
    {"ManCapKing", kRule},
    {"KingCapMove", kRule},
    {"UserName", User<&UserSettings::UserName>, "Your &Name:", "Shown beside the board. Without a comma: the name would end there at the next start.", 0, 0},
    {"NotationCapitals", User<&UserSettings::NotationCapitals>, "&Notation in capital letters", "The letters round the board are capitals."},
    {"AskExit", User<&UserSettings::AskExit>, "Ask confirmation on e&xit", "The program asks before it ends."},
    {"AskForDraw", User<&UserSettings::AskForDraw>, "As&k for draw if computer thinks it's a draw", "The computer may offer a draw when neither side gets on."},
    {"ExtendedSearch", Search<&SearchOptions::ExtendedSearch>, "E&xtended search", "The computer looks further ahead after captures and promotions."},
    {"ManContJump", kRule},
    {"LongKings", kRule},
    {"ManContJumpCrowned", kRule},
    {"RemovePieces", kRule},
    {"PromoW", kRule},
    {"PromoB", kRule},
    {"WhiteManMovement", kRule},
    {"BlackManMovement", kRule},
    {"WhiteKingMovement", kRule},
    {"BlackKingMovement", kRule},
    {"OpeningBook", User<&UserSettings::OpeningBook>, "&Opening book", "The computer plays the moves of the opening book while it has some."},
    {"MoveLimitCode", User<&UserSettings::MoveLimitCode>, "Number of moves in 50 mo&ve rule:", "So many moves of each side without a capture or a promotion are a draw.", 0, 4},
    {"CalculationOn", User<&UserSettings::CalculationOn>},
    {"CanadianBook", User<&UserSettings::CanadianBook>, "Ca&nadian Checkers book for other variants", "Variants with the same start position use that book too."},
    {"BruteForce", Search<&SearchOptions::BruteForce>, "Brute &force", "The computer searches every move to the end. This is much slower."},
    {"KingFirst", kRule},
    {"ManCapMoveKing", kRule},
    {"ColonCapture", User<&UserSettings::ColonCapture>, "Ca&pture character:", "Stands between the squares of a capture."},
    {"KingWin", kRule},
    {"MaxCapMoveK", kRule},
    {"Plys", Search<&SearchOptions::Plys>, "&Plys (default=3) :", "How many half-moves the extended search may go further: 1 to 6.", 1, 6},
    {"Balance", Search<&SearchOptions::Balance>, "Ba&lance (default=150) :", "The search is extended only where the score is within this much of what is expected: 1 to 750, a man counts 100.", 1, 750},
    {"CapRequired", kRule},
    {"ChooseOpening", User<&UserSettings::ChooseOpening>, "C&hoose opening", "Each new game can begin with one of the opening file, which is chosen first."},
    {"BookRandom", User<&UserSettings::BookRandom>, "&Random", "The opening is drawn at random instead of chosen."},
    {"UseRating", User<&UserSettings::UseRating>, "Use &Rating", "Your games against the computer change your rating."},
    {"SkinMode", User<&UserSettings::SkinMode>, "", "", 0, 4},
    {"NoLegalDraw", kRule},
    {"RemoveMen", kRule},
    {"NumberMen", kRule},
    {"DoMoves", kRule},
    {"NumberMoves", kRule},
    {"LastCap", kRule},
    {"ManKing", kRule},
    {"KingMan", kRule},
    {"AutoSave", User<&UserSettings::AutoSave>, "Auto &Save", "The game of the last run is on the board again at the next start."},
    {"UseSound", User<&UserSettings::UseSound>, "&Use Sound", "Moves can be heard."},
    {"ChangeSide", kRule},
    {"SkinName", User<&UserSettings::SkinName>, "Choose a s&kin:", "The pieces and squares. Takes effect when the dialog closes, with Cancel too.", 0, 0, kWholeLine},
    {"KingVersusKing", User<&UserSettings::KingVersusKing>, "Kin&g versus King", "One king against one, with nothing to capture, is a draw."},
    {"ThreeKings", kRule},
    {"NumberKings", kRule},
    {"PdnAlgebraic", User<&UserSettings::PdnAlgebraic>, "Save &PDN games in algebraic notation", "Squares in PDN files are written as c3 instead of as numbers."},
    {"CapReverse", kRule},
    {"RndColor", kRule},
    {"PlyValueDepth", User<&UserSettings::PlyValueDepth>, "Ply &Value Table Search :", "How deep the Ply Value Table goes: 1 to 20.", 1, 20},
    {"UseClassic", User<&UserSettings::UseClassic>},
    {"TouchMove", User<&UserSettings::TouchMove>, "Use T&ouch-Move rule", "A piece that has been touched must be moved."},
    {"JumpFriend", kRule},
    {"NumberFriends", kRule},
    {"TwoKings", kRule},
    {"NumberKings2", kRule},
    {"NumberPieces", kRule},
    {"canContract", kRule},
    {"ContractNumber", kRule},
    {"ContractW1", kRule},
    {"ContractW2", kRule},
    {"ContractB1", kRule},
    {"ContractB2", kRule},
};
// clang-format on

std::string Header() {
    return std::string("TAVLON12").append(kFormatVersion);
}

bool IsNumber(const RuleKey& key) {
    return std::holds_alternative<Byte RuleSet::*>(key.Member) || std::holds_alternative<Long RuleSet::*>(key.Member);
}

template <typename Number> bool ReadOwn(std::string_view line, bool, Number& value) {
    return ReadWhole(line, value);
}

bool ReadOwn(std::string_view line, bool wholeLine, std::string& value) {
    value = wholeLine ? line : TextItem(line);
    return true;
}

/// False when the line holds a number out of the range of its kind.
bool ReadRow(std::string_view line, const SettingRow& row, StoredSettings& stored) {
    if (row.ValueIn != nullptr) {
        return std::visit([&](auto* value) { return ReadOwn(line, row.WholeLine, *value); }, row.ValueIn(stored));
    }
    const RuleKey& key = *FindRuleKey(row.Name);
    return SetRuleValue(stored.Rules, key, IsNumber(key) ? line : TextItem(line));
}

std::string NumberText(std::string text) {
    if (!text.starts_with('-')) text.insert(text.begin(), ' ');
    return text + " ";
}

std::string OwnText(Long value) {
    return NumberText(std::to_string(value));
}

/// A line end in a text would put every line behind it out of place.
std::string OwnText(std::string value) {
    std::ranges::replace(value, '\n', ' ');
    return value;
}

std::string RowText(const SettingRow& row, StoredSettings& stored, const PromotionForm& form) {
    if (row.ValueIn != nullptr) return std::visit([](auto* value) { return OwnText(*value); }, row.ValueIn(stored));
    const RuleKey& key = *FindRuleKey(row.Name);
    const std::string text = RuleValueText(stored.Rules, key, form);
    return IsNumber(key) ? NumberText(text) : OwnText(text);
}

void Enter(std::string_view text, const SettingRow&, std::string& value) {
    value = text;
}

template <typename Number> void Enter(std::string_view text, const SettingRow& row, Number& value) {
    value = static_cast<Number>(RoundHalfEven(std::clamp<double>(ParseNumber(text), row.Least, row.Most)));
}

std::string EnteredText(const std::string& value) {
    return value;
}

std::string EnteredText(Long value) {
    return std::to_string(value);
}

std::string TextOf(StoredSettings stored, const PromotionForm& form) {
    std::string text = Header() + "\r\n";
    for (const SettingRow& row : kRows) text += RowText(row, stored, form) + "\r\n";
    return text;
}

} // namespace

std::span<const SettingRow> SettingRows() {
    return kRows;
}

const SettingRow& SettingNamed(std::string_view name) {
    return *std::ranges::find(kRows, name, &SettingRow::Name);
}

std::string SettingText(const UserSettings& settings, const SettingRow& row) {
    StoredSettings stored{settings, {}};
    return std::visit([](auto* value) { return EnteredText(*value); }, row.ValueIn(stored));
}

void SetSetting(UserSettings& settings, const SettingRow& row, std::string_view text) {
    StoredSettings stored{settings, {}};
    std::visit([&](auto* value) { Enter(text, row, *value); }, row.ValueIn(stored));
    settings = stored.User;
}

Outcome<StoredSettings> ReadSettings(std::string_view bytes) {
    using Kind = FileFailure::Kind;
    const std::vector<std::string_view> lines = SplitLines(bytes);
    if (lines.empty() || TextItem(lines[0]) != Header()) return FileFailure{Kind::OtherVersion, "", 1, ""};
    StoredSettings stored;
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        if (i + 1 >= lines.size()) return FileFailure{Kind::EndTooEarly, "", 0, ""};
        if (!ReadRow(lines[i + 1], kRows[i], stored)) {
            return FileFailure{Kind::BadValue, "", static_cast<Long>(i + 2), std::string(lines[i + 1])};
        }
    }
    return stored;
}

std::string SettingsText(const StoredSettings& stored) {
    return TextOf(stored, {.Letters = PromotionForm::Case::Capitals});
}

std::string DefaultSettingsText() {
    return TextOf(StoredSettings(), {});
}

} // namespace tavlon12
