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

const SettingRow kRows[] = {
    {"PlayMode", User<&UserSettings::PlayMode>, 0, 2},
    {"StrengthStep", Limit<&SearchLimits::StrengthStep>, 0, 9},
    {"DepthLimit", Limit<&SearchLimits::DepthLimit>, 1, 20},
    {"Notation", User<&UserSettings::Notation>, kAlgebraic, kNoLabels},
    {"BoardTurned", User<&UserSettings::BoardTurned>},
    {"MaxCapMove", kRule},
    {"MulJumps", kRule},
    {"ShowAvailableMoves", User<&UserSettings::ShowAvailableMoves>},
    {"BlackStarts", kRule},
    {"VariantFile", Variant, 0, 0, kWholeLine},
    {"PiecesOnBlack", kRule},
    {"AntiMode", kRule},
    {"WinAtPromo", kRule},
    {"TimeLimit", Limit<&SearchLimits::TimeLimit>, 1, 180},
    {"FixedDepth", Limit<&SearchLimits::FixedDepth>},
    {"ChessDraws", User<&UserSettings::ChessDraws>},
    {"MaxCapMoveKings", kRule},
    {"ManCapKing", kRule},
    {"KingCapMove", kRule},
    {"UserName", User<&UserSettings::UserName>},
    {"NotationCapitals", User<&UserSettings::NotationCapitals>},
    {"AskExit", User<&UserSettings::AskExit>},
    {"AskForDraw", User<&UserSettings::AskForDraw>},
    {"ExtendedSearch", Search<&SearchOptions::ExtendedSearch>},
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
    {"OpeningBook", User<&UserSettings::OpeningBook>},
    {"MoveLimitCode", User<&UserSettings::MoveLimitCode>, 0, 4},
    {"CalculationOn", User<&UserSettings::CalculationOn>},
    {"CanadianBook", User<&UserSettings::CanadianBook>},
    {"BruteForce", Search<&SearchOptions::BruteForce>},
    {"KingFirst", kRule},
    {"ManCapMoveKing", kRule},
    {"ColonCapture", User<&UserSettings::ColonCapture>},
    {"KingWin", kRule},
    {"MaxCapMoveK", kRule},
    {"Plys", Search<&SearchOptions::Plys>, 1, 6},
    {"Balance", Search<&SearchOptions::Balance>, 1, 750},
    {"CapRequired", kRule},
    {"ChooseOpening", User<&UserSettings::ChooseOpening>},
    {"BookRandom", User<&UserSettings::BookRandom>},
    {"UseRating", User<&UserSettings::UseRating>},
    {"SkinMode", User<&UserSettings::SkinMode>, 0, 4},
    {"NoLegalDraw", kRule},
    {"RemoveMen", kRule},
    {"NumberMen", kRule},
    {"DoMoves", kRule},
    {"NumberMoves", kRule},
    {"LastCap", kRule},
    {"ManKing", kRule},
    {"KingMan", kRule},
    {"AutoSave", User<&UserSettings::AutoSave>},
    {"UseSound", User<&UserSettings::UseSound>},
    {"ChangeSide", kRule},
    {"SkinName", User<&UserSettings::SkinName>, 0, 0, kWholeLine},
    {"KingVersusKing", User<&UserSettings::KingVersusKing>},
    {"ThreeKings", kRule},
    {"NumberKings", kRule},
    {"PdnAlgebraic", User<&UserSettings::PdnAlgebraic>},
    {"CapReverse", kRule},
    {"RndColor", kRule},
    {"PlyValueDepth", User<&UserSettings::PlyValueDepth>, 1, 20},
    {"UseClassic", User<&UserSettings::UseClassic>},
    {"TouchMove", User<&UserSettings::TouchMove>},
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

std::string TextOf(StoredSettings stored, const PromotionForm& form) {
    std::string text = Header() + "\r\n";
    for (const SettingRow& row : kRows) text += RowText(row, stored, form) + "\r\n";
    return text;
}

} // namespace

std::span<const SettingRow> SettingRows() {
    return kRows;
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
