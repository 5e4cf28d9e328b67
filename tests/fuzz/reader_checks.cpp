#include "fuzz/reader_checks.h"

#include "files/game_file.h"
#include "files/opening_book.h"
#include "files/pdn_file.h"
#include "files/pdn_moves.h"
#include "files/rating_file.h"
#include "files/settings.h"
#include "files/skin_file.h"
#include "files/variant_file.h"
#include "rules/board.h"
#include "rules/rule_keys.h"

#include <algorithm>
#include <random>
#include <span>
#include <stdexcept>

namespace tavlon12::support {

namespace {

void Require(bool holds, const char* what) {
    if (!holds) throw std::logic_error(what);
}

void RequireSquares(const PromotionList& list) {
    for (Long square : list) Require(square == kUnusedSlot || IsSquare(square), "a promotion square is on the board");
}

/// The rules as a file brings them back: the used promotion slots move together.
RuleSet Reread(RuleSet rules) {
    for (const RuleKey& key : RuleKeys()) {
        Require(SetRuleValue(rules, key, RuleValueText(rules, key)), "a rule value is read as it was written");
    }
    return rules;
}

void CheckVariant(std::string_view bytes) {
    for (FirstLine first : {FirstLine::Title, FirstLine::Key}) {
        auto definition = ReadVariant(bytes, RuleSet(), VariantTexts(), first);
        if (!definition) continue;
        RuleSet rules = definition->Rules;
        RequireSquares(rules.PromoW);
        RequireSquares(rules.PromoB);
        const RuleSet reread = Reread(rules);
        rules.PromoW = reread.PromoW;
        rules.PromoB = reread.PromoB;
        Require(rules == reread, "rules survive");
    }
}

void CheckSettings(std::string_view bytes) {
    auto first = ReadSettings(bytes);
    if (!first) return;
    RequireSquares(first->Rules.PromoW);
    RequireSquares(first->Rules.PromoB);
    const std::string text = SettingsText(*first);
    Require(std::ranges::count(text, '\n') == 84, "the file has 84 lines");
    // What a text loses by being written without quotes it loses at once.
    auto second = ReadSettings(text);
    Require(static_cast<bool>(second), "what was written can be read");
    const std::string settled = SettingsText(*second);
    auto third = ReadSettings(settled);
    Require(third && SettingsText(*third) == settled, "settings survive");
}

void CheckRating(std::string_view bytes) {
    auto rating = ReadRating(bytes);
    if (!rating) return;
    auto again = ReadRating(RatingText(*rating));
    Require(again && *again == std::max<Integer>(*rating, 0), "a rating survives");
}

void CheckSkin(std::string_view bytes) {
    auto skin = ReadSkin(bytes);
    if (!skin) return;
    for (const SkinImage& image : skin->Squares) Require(image.Index < kSquareImages, "an image has a place");
    for (const SkinImage& image : skin->Cursors) Require(image.Index < kPieceCursors, "a cursor has a place");
}

void CheckGame(std::string_view bytes) {
    auto first = ReadGameFile(bytes, {});
    if (!first) return;
    RequireSquares(first->Head.Rules.PromoW);
    RequireSquares(first->Head.Rules.PromoB);
    Require(GameLineCount(bytes) >= static_cast<Long>(first->Lines.size()), "no more lines are read than counted");
    // What the form cannot hold it loses at once: slots behind the 16th, gaps between them, line ends of other kinds.
    const std::string text = GameFileText(first->Head, first->Lines);
    auto second = ReadGameFile(text, {});
    Require(second && GameFileText(second->Head, second->Lines) == text, "a game survives");
}

void CheckOwnTag(const std::string& value) {
    auto first = ReadOwnTag(value);
    if (!first) return;
    RequireSquares(first->Rules.PromoW);
    RequireSquares(first->Rules.PromoB);
    const std::string text = OwnTagText(*first);
    auto second = ReadOwnTag(text);
    Require(second && OwnTagText(*second) == text, "an own tag survives");
}

void CheckMoves(const std::string& text, const PdnMoveSettings& settings) {
    PdnMoveReader reader{text, settings};
    for (std::size_t items = 0;; ++items) {
        Require(items <= text.size() + 1, "each item takes something");
        const PdnItem item = NextPdnItem(reader);
        if (item.What == PdnItem::Kind::End || item.What == PdnItem::Kind::Error) return;
        Require(item.What != PdnItem::Kind::Move || item.Text.size() <= 4, "a key has two squares");
    }
}

void CheckGameOfPdn(PdnTags tags, const std::string& moves) {
    CheckOwnTag(tags.OwnTag);
    if (auto fen = ReadFen(tags.Fen, 1)) {
        Require(ReadPositionString(PositionString(fen->Board)) == fen->Board,
                "a position has pieces and borders alone");
    }
    for (const PdnMoveSettings& settings :
         {PdnMoveSettings{.Notation = kNumeric},
          {.Notation = kAlgebraic, .AsVariant = true},
          {.Notation = kAlgebraic, .PiecesOnBlack = 2, .OwnTag = true, .Placements = true}}) {
        CheckMoves(moves, settings);
    }
    tags.Event = tags.Event.empty() ? "Event" : OneLine(tags.Event);
    const std::string text = PdnGameText(tags, {}, kNumeric);
    PdnReader reader(text);
    auto again = NextPdnGame(reader);
    Require(IsPdnText(text) && again && again->Tags.Event == tags.Event, "a game that was written is found again");
    Require(!NextPdnGame(reader), "and no other");
    const std::string written = PdnMoveText(reader, *again);
    PdnMoveReader eater{written, {}};
    Require(NextPdnItem(eater).What == PdnItem::Kind::End, "a result is no move");
}

void CheckPdn(std::string_view bytes) {
    const std::string text = PdnText(bytes);
    Require(PdnText(text) == text || text.find('\0') != std::string::npos || text.empty(), "line ends are settled");
    PdnReader reader(text);
    while (auto game = NextPdnGame(reader)) {
        const std::string moves = PdnMoveText(reader, *game);
        Require(!moves.empty() || reader.Lines[game->FirstMoveLine].empty(), "a game has moves or a result");
        CheckGameOfPdn(game->Tags, moves);
    }
}

void CheckBook(std::string_view bytes) {
    RuleSet rules;
    std::mt19937 random(1);
    const std::string digits = PositionString(ClassicStart());
    const SquarePair moves[] = {{58, 73}, {144, 129}, {kOffBoard, 60}};
    for (std::size_t played = 0; played < 12; ++played) {
        rules.PiecesOnBlack = played < 8 ? 1 : 2;
        auto answer = AskBook(bytes,
                              {rules, "Canadian Checkers", digits, std::span(moves).first(played % 4),
                               played % 2 == 0 ? kWhite : kBlack, played < 4, true},
                              random);
        if (!answer) continue;
        Require(answer->BookCandidates.size() <= 11, "there are 11 candidates at most");
        for (Long square : {answer->Move.From, answer->Move.To}) {
            Require(square == 0 || IsSquare(square), "a move has squares");
        }
    }
}

const ReaderCheck kChecks[] = {
    {"variant", CheckVariant}, {"settings", CheckSettings}, {"rating", CheckRating}, {"skin", CheckSkin},
    {"game", CheckGame},       {"pdn", CheckPdn},           {"book", CheckBook},
};

} // namespace

std::span<const ReaderCheck> ReaderChecks() {
    return kChecks;
}

const ReaderCheck& FindReaderCheck(std::string_view name) {
    auto found = std::ranges::find(kChecks, name, &ReaderCheck::Name);
    if (found == std::end(kChecks)) throw std::invalid_argument("no reader check: " + std::string(name));
    return *found;
}

} // namespace tavlon12::support
