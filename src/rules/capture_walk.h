#pragma once

#include "rules/position.h"
#include "rules/register_moves.h"
#include "rules/walk_rules.h"

#include <algorithm>
#include <cassert>

namespace tavlon12 {

// How captures are found.
//
// A piece that captures walks over the board. At each square it stands on (a node of the walk) every capture direction
// is tried in the order of its movement string; in a direction the walk looks for the piece to jump, and behind it for
// the squares to land on, the nearest first. Each jump is carried out on the board itself: the piece moves, its start
// square is empty, the jumped piece is marked by 10 less in its cell. From the new square the walk goes on in the same
// way, and when all directions of a node are used up the jump that led there is undone. So the walk is depth-first, and
// the board is the only copy of the position.
//
// Captures are recorded on the way back, when a node is used up: with mandatory continuation only where no further jump
// was found, otherwise at every node. A capture that ends on a promotion square is recorded at once where the rules end
// the move there. What is recorded goes into a table of rows; which rows are legal moves depends on all of them and is
// decided after the last piece has walked (capture_selection.h). Only American draughts, where every capture is as good
// as another, puts them into the move list on the way.
//
// Short pieces jump the neighbouring cell in a direction and land right behind it. Flying pieces look along the line
// for the first piece and may land on any free square behind it. A man can start to fly in mid-walk, when it is crowned
// there.

/// The walks of one call of a generator, under `Rules` (walk_rules.h). A passed limit is left in the position's fault;
/// the board is whole again either way.
template <typename Rules> class CaptureWalk {
public:
    CaptureWalk(Position& position, CaptureTable& table)
        : position_(position), table_(table), board_(position.Board), rules_(position), side_(position.Tree.SideToMove),
          notesLastCap_(rules_.LastCap() && (position.Tree.Ply == 0 || position.LastCapAnyPly)) {}

    /// All captures of the piece of the side to move on `square`. False when a limit has been passed.
    [[nodiscard]] bool Run(Long square) {
        start_ = square;
        startPiece_ = piece_ = board_[square];
        assert(IsLivePiece(piece_) && piece_ * side_ > 0);
        pieceType_ = PieceType(piece_);
        flying_ = Magnitude(piece_) == kKing ? rules_.LongKings() : rules_.ManCapMoveKing();
        crowned_ = false;
        longest_ = 0;
        path_ = lastPath_ = CapturePath();
        const bool finished = Explore(square, 0, 0);
        assert(board_[square] == startPiece_ && piece_ == startPiece_ && path_.Count == 0 && !crowned_);
        return finished;
    }

private:
    struct Jump {
        Long From;
        Long Candidate;
        Long Target;
        Long Step;
        Long Depth;
    };

    /// Tries every jump from a node, which `depth` jumps have reached, and records the capture that ends there.
    bool Explore(Long at, Long depth, Long previousStep) {
        assert(board_[at] == piece_ && path_.Count == depth);
        bool fresh = true; // no jump has been made from here
        for (Long step : position_.DirTable[pieceType_ + 4]) {
            if (step == kEndOfSteps) break;
            bool mayReverse = depth == 0 || step != -previousStep || rules_.CapReverse();
            Long candidate = FindCandidate(at, step, mayReverse);
            if (candidate == 0 || !MayTake(board_[candidate])) continue;
            bool longLanding = flying_ && !rules_.KingFirst();
            for (Long target = candidate + step;; target += step) {
                if (board_[target] == kEmpty) {
                    fresh = false;
                    if (!CarryOut({at, candidate, target, step, depth})) return false;
                } else if (!(IsMarked(board_[target]) && !rules_.RemovePieces())) {
                    break;
                }
                if (!longLanding) break;
            }
        }
        if (depth == 0) return true;
        bool ends = !rules_.MulJumps() || !path_.IsBeginningOf(lastPath_) || (rules_.LongKings() && fresh);
        return !ends || Record(at, false, depth - 1);
    }

    /// The cell of the piece to jump in a direction, 0 when there is none. A flying piece passes marked pieces where
    /// jumped pieces do not block, and with `mayReverse` false it passes every piece, so that it finds none.
    Long FindCandidate(Long at, Long step, bool mayReverse) const {
        Long cell = at + step;
        if (!flying_) {
            Long value = board_[cell];
            return value == kEmpty || value == kBorder || (IsMarked(value) && rules_.RemovePieces()) ? 0 : cell;
        }
        for (;; cell += step) {
            Long value = board_[cell];
            if (value == kBorder || (IsMarked(value) && rules_.RemovePieces())) return 0;
            if (IsLivePiece(value) && mayReverse) return cell;
        }
    }

    bool MayTake(Long cell) const {
        if (cell == -side_ * kMan) return true;
        return cell == -side_ * kKing && (rules_.ManCapKing() || Magnitude(piece_) == kKing);
    }

    /// Makes one jump on the board, follows the walk behind it, and undoes the jump whatever came of it.
    bool CarryOut(const Jump& jump) {
        if (jump.Depth == kMaxJumps) return Fail(GeneratorFault::Kind::Jumps, jump.Depth);
        if (++jumps_ > position_.JumpLimit) return Fail(GeneratorFault::Kind::Work, jump.Depth);
        if (notesLastCap_ && jump.Depth == 0 && jump.Candidate == position_.Tree.TreeTo[position_.Tree.TreeIndex]) {
            ++table_.LastCapCount;
            table_.NextIsLastCap = true;
        }

        assert(board_[jump.From] == piece_ && MayTake(board_[jump.Candidate]) && board_[jump.Target] == kEmpty);
        path_.Add(jump.Candidate, Magnitude(board_[jump.Candidate]));
        longest_ = std::max<Long>(longest_, path_.Count);
        board_[jump.Candidate] -= kJumpedMark;
        board_[jump.From] = kEmpty;
        board_[jump.Target] = piece_;

        bool onPromotion = ManOnPromotion(jump.Target);
        bool crownsHere = rules_.ManContJumpCrowned() && onPromotion && !crowned_;
        bool flewBefore = flying_;
        if (crownsHere) {
            crowned_ = true;
            board_[jump.Target] = piece_ = kKing * side_;
            pieceType_ = PieceType(piece_);
            flying_ = true;
        }

        bool endsHere = !rules_.ManContJump() && onPromotion;
        bool ok = endsHere ? Record(jump.Target, true, jump.Depth) : Explore(jump.Target, jump.Depth + 1, jump.Step);

        if (crownsHere) {
            crowned_ = false;
            piece_ = kMan * side_;
            pieceType_ = PieceType(piece_);
            flying_ = flewBefore;
        }
        assert(board_[jump.From] == kEmpty && IsMarked(board_[jump.Candidate]));
        board_[jump.Target] = kEmpty;
        board_[jump.Candidate] += kJumpedMark;
        board_[jump.From] = piece_;
        path_.RemoveLast();
        return ok;
    }

    /// Whether the walking piece, a man still, stands on a promotion square there.
    bool ManOnPromotion(Long square) const {
        return pieceType_ < 2 && IsPromotionSquare(position_, side_, square, Rules::kPromotionSlots);
    }

    /// Keeps the capture that ends on `at`.
    bool Record(Long at, bool stoppedOnPromotion, Long depth) {
        bool promotes = stoppedOnPromotion || (rules_.ManContJump() && (crowned_ || ManOnPromotion(at)));
        lastPath_ = path_;
        if constexpr (Rules::kRegistersAtOnce) {
            if (promotes) {
                RegisterPromotion(position_, start_, at, path_);
            } else {
                RegisterCaptureMove(position_, start_, at, path_);
            }
            return true;
        }
        bool dedup = rules_.DedupCaptures() && !stoppedOnPromotion;
        const CapturePath stored = dedup ? path_.Sorted() : path_;
        if (dedup && IsDuplicate(stored, at)) return true;
        if (table_.RowCount == kCaptureRows) return Fail(GeneratorFault::Kind::Rows, depth);
        AddRow(at, promotes, stored);
        return true;
    }

    void AddRow(Long at, bool promotes, const CapturePath& stored) {
        assert(table_.RowCount < kCaptureRows && stored.Count > 0 && stored.Count <= longest_);
        Long length = stored.Count;
        Long kings = stored.KingCount();
        table_.Rows[table_.RowCount] = {start_,      at,       promotes ? 1 : 0,     kings,
                                        startPiece_, longest_, table_.NextIsLastCap, stored};
        table_.NextIsLastCap = false;
        ++table_.RowCount;

        table_.MostKings[length] = std::max(table_.MostKings[length], kings);
        table_.MaxLength = std::max(table_.MaxLength, length);
        Long& longestOfKind = table_.LongestOf[Magnitude(startPiece_)];
        longestOfKind = std::max(longestOfKind, length);
        if (startPiece_ * side_ > table_.BestPiece * side_) table_.BestPiece = startPiece_;
    }

    /// Whether the capture cannot stay anyway, or an earlier row takes the same pieces between the same squares.
    bool IsDuplicate(const CapturePath& sorted, Long at) const {
        if (rules_.MaxCapMove() && sorted.Count < table_.MaxLength) return true;
        return std::any_of(table_.Rows.begin(), table_.Rows.begin() + table_.RowCount, [&](const CaptureRow& row) {
            return row.From == start_ && row.To == at && row.Path == sorted;
        });
    }

    bool Fail(GeneratorFault::Kind limit, Long depth) {
        position_.Fault = {limit, Rules::kIsFamily, depth, table_.RowCount};
        position_.StopFlag = kStopCancel;
        return false;
    }

    Position& position_;
    CaptureTable& table_;
    BoardCells& board_;
    const Rules rules_;
    Long side_;
    bool notesLastCap_;
    Long jumps_ = 0; ///< of all walks of this call

    // The piece that walks; it changes when a man is crowned on the way
    Long start_ = 0;
    Long startPiece_ = 0;
    Long piece_ = 0;
    Long pieceType_ = 0;
    bool flying_ = false;
    bool crowned_ = false;
    Long longest_ = 0; ///< most jumps reached so far
    CapturePath path_;
    CapturePath lastPath_; ///< of the capture recorded last
};

} // namespace tavlon12
