#include "support/reference_generator.h"

#include "support/positions.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <utility>

namespace tavlon12::support {

namespace {

using Path = std::vector<ReferencePiece>;

bool IsOn(Long flag) {
    return flag == 1;
}

/// Steps of one side's word list, as that side sees them.
std::vector<Long> StepsOfWords(const std::string& words, Long side) {
    static const std::map<std::string, Long> rowsAndColumns = {{"N", 14},  {"S", -14},  {"E", 1},    {"W", -1},
                                                               {"NE", 15}, {"NW", 13},  {"SE", -13}, {"SW", -15},
                                                               {"NN", 28}, {"SS", -28}, {"EE", 2},   {"WW", -2}};
    std::vector<Long> steps;
    std::istringstream stream(words);
    for (std::string word; std::getline(stream, word, ';') && steps.size() < 8;) {
        auto found = rowsAndColumns.find(word);
        if (found == rowsAndColumns.end()) break;
        steps.push_back(side * found->second);
    }
    return steps;
}

Long SideOf(Long piece) {
    return piece > 0 ? 1 : -1;
}

/// The quiet words stand before the first blank of a movement string, those of captures behind it.
std::vector<Long> Steps(const RuleSet& rules, Long piece, bool captures) {
    const bool white = piece > 0;
    const std::string& text = piece == 1 || piece == -1 ? (white ? rules.WhiteManMovement : rules.BlackManMovement)
                                                        : (white ? rules.WhiteKingMovement : rules.BlackKingMovement);
    const std::size_t blank = std::min(text.find(' '), text.size());
    if (!captures) return StepsOfWords(text.substr(0, blank), SideOf(piece));
    return StepsOfWords(text.substr(std::min(blank + 1, text.size())), SideOf(piece));
}

/// A man of this side is promoted on the square. A leap over friends knows the first 12 squares of a list only.
bool Promotes(const RuleSet& rules, Long side, Long square, std::size_t slots = 20) {
    const PromotionList& list = side == 1 ? rules.PromoW : rules.PromoB;
    const auto end = list.begin() + static_cast<std::ptrdiff_t>(slots);
    return std::find(list.begin(), end, square) != end;
}

bool IsKing(Long piece) {
    return piece == 2 || piece == -2;
}

bool MayTake(const RuleSet& rules, Long hunter, Long prey) {
    if (prey == kBorder || prey == kEmpty || SideOf(prey) == SideOf(hunter)) return false;
    return IsKing(hunter) || !IsKing(prey) || IsOn(rules.ManCapKing);
}

/// All squares are in play and kings fly: routes over the same pieces are one capture.
bool RoutesCountOnce(const RuleSet& rules) {
    bool sideways = false;
    for (Long piece : {1, -1, 2, -2})
        for (bool captures : {false, true})
            for (Long step : Steps(rules, piece, captures)) sideways = sideways || step == 1 || step == -1;
    return IsOn(rules.LongKings) && (rules.PiecesOnBlack == 2 || sideways);
}

struct Row {
    Long From;
    Long To;
    bool Promotes;
    Long StartPiece;
    std::size_t LongestSoFar;
    Path Jumped;
    bool Struck = false;

    Long Kings() const { return static_cast<Long>(std::ranges::count(Jumped, 2, &ReferencePiece::Magnitude)); }
};

struct Hunt {
    const ReferenceState& State;
    const Long Budget;
    ReferenceMoves& Result;
    const bool RoutesOnce;
    std::vector<Row> Rows;
    std::set<std::size_t> LastCapRows; ///< noted before a row exists: that of the row recorded next, whosever it is
    std::size_t MaxLength = 0;
    // Of the piece whose walk is under way
    Long Start = 0;
    Long StartPiece = 0;
    Path LastPath; ///< of the capture found last, also when it was refused as a duplicate
    std::size_t Longest = 0;
};

/// The piece in the middle of its walk. The board shows neither the piece itself nor a change in the pieces it has
/// jumped.
struct Standing {
    BoardCells Board;
    Path Jumped;
    Long At;
    Long Piece;
    bool Flying;
    bool Crowned;
    Long LastStep; ///< 0 before the first jump
};

bool HasJumped(const Standing& here, Long square) {
    return std::ranges::find(here.Jumped, square, &ReferencePiece::Square) != here.Jumped.end();
}

bool IsFree(const Standing& here, Long square) {
    return here.Board[square] == kEmpty && !HasJumped(here, square);
}

/// The piece that stands in the way in direction `step`, friend or foe.
std::optional<Long> FirstInTheWay(const RuleSet& rules, const Standing& here, Long step) {
    const bool backwards = here.LastStep != 0 && step == -here.LastStep;
    if (here.Flying && backwards && !IsOn(rules.CapReverse)) return std::nullopt;
    for (Long square = here.At + step; here.Board[square] != kBorder; square += step) {
        const bool jumped = HasJumped(here, square);
        if (!jumped && here.Board[square] != kEmpty) return square;
        if (!here.Flying || (jumped && IsOn(rules.RemovePieces))) return std::nullopt;
    }
    return std::nullopt;
}

/// Where the jump may end, the nearest square first.
std::vector<Long> Landings(const RuleSet& rules, const Standing& here, Long prey, Long step) {
    std::vector<Long> squares;
    for (Long square = prey + step;; square += step) {
        if (IsFree(here, square)) {
            squares.push_back(square);
        } else if (IsOn(rules.RemovePieces) || !HasJumped(here, square)) {
            break;
        }
        if (!here.Flying || IsOn(rules.KingFirst)) break;
    }
    return squares;
}

bool StartsWith(const Path& whole, const Path& beginning) {
    return beginning.size() <= whole.size() && std::equal(beginning.begin(), beginning.end(), whole.begin());
}

void Record(Hunt& hunt, const Standing& here, bool stoppedOnPromotion) {
    const RuleSet& rules = hunt.State.Rules;
    Path jumped = here.Jumped;
    if (hunt.RoutesOnce && !stoppedOnPromotion) {
        std::sort(jumped.begin(), jumped.end());
        bool tooShort = IsOn(rules.MaxCapMove) && jumped.size() < hunt.MaxLength;
        bool known = std::any_of(hunt.Rows.begin(), hunt.Rows.end(), [&](const Row& row) {
            return row.Jumped == jumped && row.From == hunt.Start && row.To == here.At;
        });
        if (tooShort || known) {
            hunt.LastPath = here.Jumped;
            return;
        }
    }
    bool manOnPromotion = !IsKing(here.Piece) && Promotes(rules, SideOf(here.Piece), here.At);
    bool promotes = stoppedOnPromotion || (IsOn(rules.ManContJump) && (here.Crowned || manOnPromotion));
    hunt.Rows.push_back({hunt.Start, here.At, promotes, hunt.StartPiece, hunt.Longest, jumped});
    hunt.MaxLength = std::max(hunt.MaxLength, jumped.size());
    hunt.LastPath = here.Jumped;
}

void Walk(Hunt& hunt, const Standing& here) {
    const RuleSet& rules = hunt.State.Rules;
    bool wentOn = false;
    for (Long step : Steps(rules, here.Piece, true)) {
        std::optional<Long> prey = FirstInTheWay(rules, here, step);
        if (!prey || !MayTake(rules, here.Piece, here.Board[*prey])) continue;
        for (Long landing : Landings(rules, here, *prey, step)) {
            if (++hunt.Result.JumpsTried > hunt.Budget || here.Jumped.size() > 40) {
                hunt.Result.GaveUp = true;
                return;
            }
            wentOn = true;
            if (here.Jumped.empty() && IsOn(rules.LastCap) && hunt.State.LastCapInForce && *prey == hunt.State.LastTo)
                hunt.LastCapRows.insert(hunt.Rows.size());
            Standing next = here;
            next.Jumped.push_back({*prey, IsKing(here.Board[*prey]) ? 2 : 1});
            next.At = landing;
            next.LastStep = step;
            hunt.Longest = std::max(hunt.Longest, next.Jumped.size());
            hunt.Result.LongestWalk = std::max(hunt.Result.LongestWalk, static_cast<Long>(next.Jumped.size()));
            if (!IsKing(next.Piece) && Promotes(rules, SideOf(next.Piece), landing)) {
                if (!IsOn(rules.ManContJump)) {
                    Record(hunt, next, true);
                    continue;
                }
                if (IsOn(rules.ManContJumpCrowned)) {
                    next.Piece *= 2;
                    next.Crowned = true;
                    next.Flying = true;
                }
            }
            Walk(hunt, next);
            if (hunt.Result.GaveUp) return;
        }
    }
    if (here.Jumped.empty()) return;
    // With stops allowed everywhere each stage counts. Otherwise the end of a walk does: for a flying king whenever it
    // cannot go on, for other pieces when the capture found last does not begin with the same pieces.
    bool endOfWalk = IsOn(rules.LongKings) && !wentOn;
    if (!IsOn(rules.MulJumps) || endOfWalk || !StartsWith(hunt.LastPath, here.Jumped)) Record(hunt, here, false);
}

void HuntFrom(Hunt& hunt, Long square) {
    const RuleSet& rules = hunt.State.Rules;
    Long piece = hunt.State.Board[square];
    hunt.Start = square;
    hunt.StartPiece = piece;
    hunt.LastPath.clear();
    hunt.Longest = 0;
    Standing here{hunt.State.Board, {}, square, piece, false, false, 0};
    here.Board[square] = kEmpty;
    here.Flying = IsKing(piece) ? IsOn(rules.LongKings) : IsOn(rules.ManCapMoveKing);
    Walk(hunt, here);
}

void AddQuietMoves(const ReferenceState& state, Long square, std::vector<ReferenceMove>& moves) {
    const RuleSet& rules = state.Rules;
    const BoardCells& board = state.Board;
    Long piece = board[square];
    Long side = SideOf(piece);
    for (Long step : Steps(rules, piece, false)) {
        if (IsKing(piece) && IsOn(rules.LongKings)) {
            for (Long to = square + step; board[to] == kEmpty; to += step) moves.push_back({square, to, {}, false});
            continue;
        }
        Long to = square + step;
        Long friends = 0;
        for (; board[to] == piece; to += step) ++friends;
        const bool leaps = IsOn(rules.JumpFriend) && (friends == rules.NumberFriends || rules.NumberFriends == -1);
        if (board[to] != kEmpty || (friends > 0 && !leaps)) continue;
        moves.push_back({square, to, {}, !IsKing(piece) && Promotes(rules, side, to, friends > 0 ? 12 : 20)});
    }
}

bool CanPlace(const ReferenceState& state, Long square) {
    const RuleSet& rules = state.Rules;
    Long row = square / 14;
    Long column = square % 14;
    if (!IsOn(rules.canContract) || state.Board[square] != kEmpty) return false;
    if (rules.PiecesOnBlack < 2 && (row + column) % 2 != (rules.PiecesOnBlack == 0 ? 0 : 1)) return false;
    const bool white = state.SideToMove == 1;
    const std::int64_t first = white ? rules.ContractW1 : rules.ContractB1;
    const std::int64_t last = white ? rules.ContractW2 : rules.ContractB2;
    if (state.OffBoard[white ? 0 : 1] <= 0 || row != first) return false;
    const std::int64_t rows = first < last ? last - first : first - last;
    const std::int64_t mustBeFree = white ? row + rows : row - rows;
    if (mustBeFree < 0 || mustBeFree > 15) return false;
    return state.Board[static_cast<std::size_t>(mustBeFree * 14 + column)] == kEmpty;
}

void SelectCaptures(Hunt& hunt, Long mode, std::vector<ReferenceMove>& moves) {
    const RuleSet& rules = hunt.State.Rules;
    if (hunt.Rows.empty()) return;
    bool lastCapFound = IsOn(rules.LastCap) && !hunt.LastCapRows.empty();
    if (lastCapFound && !IsOn(rules.CapRequired) && mode == 0) moves.clear();

    // What the tests compare with is taken from all captures found, before any of them is struck out.
    bool kingCaptures = false;
    std::size_t kingsLongest = 0;
    std::map<std::size_t, Long> mostKings;
    for (const Row& row : hunt.Rows) {
        std::size_t length = row.Jumped.size();
        if (IsKing(row.StartPiece)) {
            kingCaptures = true;
            kingsLongest = std::max(kingsLongest, length);
        }
        mostKings[length] = std::max(mostKings[length], row.Kings());
    }
    std::size_t lengthAsked = kingCaptures && IsOn(rules.KingCapMove) ? kingsLongest : hunt.MaxLength;

    for (std::size_t r = 0; r < hunt.Rows.size(); ++r) {
        Row& row = hunt.Rows[r];
        if (!IsOn(rules.MulJumps) && !row.Struck) {
            for (std::size_t later = r + 1; later < hunt.Rows.size(); ++later) {
                Row& other = hunt.Rows[later];
                if (other.From == row.From && other.To == row.To && other.Promotes == row.Promotes &&
                    other.Jumped == row.Jumped)
                    other.Struck = true;
            }
        }
        const bool wholeWalks = IsOn(rules.LongKings) && IsOn(rules.MaxCapMoveK) && IsOn(rules.MulJumps);
        if (wholeWalks && IsKing(row.StartPiece) && row.Jumped.size() != row.LongestSoFar) row.Struck = true;
        if (lastCapFound && hunt.LastCapRows.count(r) == 0) row.Struck = true;
        if (row.Struck) continue;
        if (IsOn(rules.MaxCapMove) && row.Jumped.size() != lengthAsked) continue;
        if (IsOn(rules.MaxCapMove) && IsOn(rules.MaxCapMoveKings) && row.Kings() != mostKings[lengthAsked]) continue;
        bool menYield = IsOn(rules.KingCapMove) && !IsOn(rules.MaxCapMoveKings) && kingCaptures;
        if (menYield && !IsKing(row.StartPiece)) continue;
        hunt.Result.AnyCaptureLeft = true;
        moves.push_back({row.From, row.To, row.Jumped, row.Promotes});
    }
}

} // namespace

ReferenceState StateOf(const Position& position) {
    const GameTree& tree = position.Tree;
    return {position.Rules,
            position.Board,
            tree.SideToMove,
            {tree.WhiteOffBoard, tree.BlackOffBoard},
            tree.TreeTo[tree.TreeIndex],
            tree.Ply == 0 || position.LastCapAnyPly};
}

ReferenceMoves GenerateReferenceMoves(const ReferenceState& state, Long mode, Long budget) {
    ReferenceMoves result;
    Hunt hunt{state, budget, result, RoutesCountOnce(state.Rules), {}, {}, 0, 0, 0, {}, 0};
    bool withQuiet = mode > 0 || (mode == 0 && !IsOn(state.Rules.CapRequired));
    for (Long square = 29; square <= 194; ++square) {
        Long cell = state.Board[square];
        bool own = cell != kBorder && cell != kEmpty && SideOf(cell) == state.SideToMove;
        if (own && withQuiet) AddQuietMoves(state, square, result.Moves);
        if (own) HuntFrom(hunt, square);
        if (result.GaveUp) return result;
        if (withQuiet && CanPlace(state, square)) result.Moves.push_back({kOffBoard, square, {}, false});
    }
    result.AnyQuiet = !result.Moves.empty();
    result.Rows = static_cast<Long>(hunt.Rows.size());
    SelectCaptures(hunt, mode, result.Moves);
    return result;
}

ReferenceState AfterMove(const ReferenceState& state, const ReferenceMove& move, bool lastCapInForce) {
    ReferenceState after = state;
    const RuleSet& rules = state.Rules;
    Long side = state.SideToMove;
    Long piece = side;
    for (const ReferencePiece& jumped : move.Jumped) after.Board[jumped.Square] = kEmpty;
    if (move.From == kOffBoard) {
        --after.OffBoard[side == 1 ? 0 : 1];
    } else {
        piece = std::exchange(after.Board[move.From], kEmpty);
    }
    if (IsOn(rules.KingMan) && !move.Jumped.empty() && IsKing(piece) && move.From != move.To) piece = side;
    if (move.Promotes) piece = IsOn(rules.ChangeSide) ? -2 * side : 2 * side;
    after.Board[move.To] = piece;
    after.SideToMove = -side;
    after.LastTo = move.To;
    after.LastCapInForce = lastCapInForce;
    const auto theirs = [&](Long cell) { return cell != kBorder && cell != kEmpty && SideOf(cell) == -side; };
    if (IsOn(rules.ManKing) && std::ranges::count_if(after.Board, theirs) == 1)
        *std::ranges::find_if(after.Board, theirs) = -2 * side;
    return after;
}

ReferenceMove AsReference(const MoveRecord& move) {
    ReferenceMove result{move.From, move.To, {}, move.Promotes != 0};
    for (Long i = 0; i < move.Captures.Count; ++i)
        result.Jumped.push_back({move.Captures.Squares[static_cast<std::size_t>(i)], move.Captures.MagnitudeAt(i)});
    return result;
}

std::string MoveText(const ReferenceMove& move) {
    std::string text = move.From == kOffBoard ? "@" : NameOf(move.From) + (move.Jumped.empty() ? "-" : "x");
    text += NameOf(move.To);
    for (std::size_t i = 0; i < move.Jumped.size(); ++i) {
        text.append(i == 0 ? "(" : ",").append(move.Jumped[i].Magnitude == 2 ? "K" : "");
        text.append(NameOf(move.Jumped[i].Square));
    }
    return text.append(move.Jumped.empty() ? "" : ")").append(move.Promotes ? "=K" : "");
}

std::string MoveTexts(const std::vector<ReferenceMove>& moves) {
    std::string text;
    for (const ReferenceMove& move : moves) text.append(text.empty() ? "" : " ").append(MoveText(move));
    return text;
}

} // namespace tavlon12::support
