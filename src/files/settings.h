#pragma once

#include "engine/search_options.h"
#include "files/variant_file.h"
#include "rules/notation.h"
#include "rules/rule_set.h"

#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace tavlon12 {

/// The user's options, with the values of a first start. Rule values are no part of it.
struct UserSettings {
    Long PlayMode = 0; ///< as stored: 0 Player-Computer, 1 Player-Player; a stored 2 reads as 0
    SearchLimits Limits;
    SearchOptions Search;
    Byte Notation = kAlgebraic;
    Long BoardTurned = 1;
    Byte ShowAvailableMoves = 1;
    Byte ChessDraws = 1;
    std::string UserName = "Player";
    Byte NotationCapitals = 0;
    Byte AskExit = 1;
    Byte AskForDraw = 0;
    Byte OpeningBook = 0;
    Byte MoveLimitCode = 1;
    Long CalculationOn = 1;
    Byte CanadianBook = 0;
    Byte ColonCapture = 0;
    Byte ChooseOpening = 0;
    Byte BookRandom = 0;
    Byte UseRating = 1;
    Long SkinMode = 2; ///< as stored; `SkinName` decides when the skin is loaded
    Byte AutoSave = 0;
    Byte UseSound = 0;
    std::string SkinName = "Classic Small";
    Byte KingVersusKing = 0;
    Byte PdnAlgebraic = 0;
    Byte PlyValueDepth = 5;
    Long UseClassic = 1; ///< 1: the variant's file lies among the program's variants, 0: among the user's
    Long TouchMove = 0;
};

/// What the settings file holds, with the values of a first start.
struct StoredSettings {
    UserSettings User;
    RuleSet Rules; ///< those in force; `Setup` is not stored
    std::string VariantFile = kDefaultVariant;
};

/// One line of the settings file. Its kind is that of its member; its default is the one of `StoredSettings`.
struct SettingRow {
    using Value = std::variant<Byte*, Integer*, Long*, std::string*>;

    std::string_view Name;
    Value (*ValueIn)(StoredSettings&); ///< null for a rule value, which has the name as its key
    std::string_view Caption = {};     ///< beside its control, with "&" before its access key; empty where it has none
    std::string_view Tip = {};         ///< what it does, in a sentence
    Long Least = 0;                    ///< of a number of the user's: what he can choose; a file may hold
    Long Most = 1;                     ///< any value of the kind
    bool WholeLine = false;            ///< a text that is read with its commas, leading blanks and quotes
};

/// The settings in the order of the file, from its second line on.
std::span<const SettingRow> SettingRows();

/// The row of a setting; the name must be one of the table.
const SettingRow& SettingNamed(std::string_view name);

/// The value of a setting of the user's, numbers without blanks.
std::string SettingText(const UserSettings& settings, const SettingRow& row);

/// Takes over a value that the user has entered: the number at the start of the text, 0 without one, drawn into the
/// range of the setting.
void SetSetting(UserSettings& settings, const SettingRow& row, std::string_view text);

/// Reads the bytes of a settings file. A failure `BadValue` is a value out of the range of its kind; after any other
/// (another header, too few lines) the file counts as unusable and the defaults take its place.
Outcome<StoredSettings> ReadSettings(std::string_view bytes);

/// The bytes of the settings file at the end of a run.
std::string SettingsText(const StoredSettings& stored);

/// The bytes of the settings file of a first start, which has its promotion squares in another case.
std::string DefaultSettingsText();

} // namespace tavlon12
