#pragma once

#include "engine/search_state.h"
#include "rules/position.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

namespace tavlon12 {

// What the general evaluation and those of the families share.

using SquareFlags = std::array<bool, kBoardCells>;

constexpr SquareFlags FlagsOf(std::initializer_list<Long> squares) {
    SquareFlags set{};
    for (Long square : squares) set[square] = true;
    return set;
}

/// The centre by `PiecesOnBlack`, 2 standing for all that is above it too.
inline constexpr std::array<SquareFlags, 3> kCentre = {
    FlagsOf({101, 103, 105, 107, 116, 118, 120, 122}), FlagsOf({102, 104, 106, 108, 115, 117, 119, 121}),
    FlagsOf({99, 100, 101, 102, 103, 106, 107, 108, 109, 110, 113, 114, 115, 116, 117, 120, 121, 122, 123, 124})};

inline constexpr SquareFlags kMainLine = FlagsOf({29, 44, 59, 74, 89, 104, 119, 134, 149, 164, 179, 194});
inline constexpr SquareFlags kBadKingSquares = FlagsOf({35, 110, 113, 188});

/// The greatest distance of two squares is 22, so that every bonus for nearness is above 0.
inline constexpr Long kNearness = 23;

/// What stands on the board, by side.
struct Census {
    std::array<Long, 2> Pieces{};
    std::array<Long, 2> Men{};
    std::array<Long, 2> Target{}; ///< the square of one piece, the other side's pieces strive to it; 0 without pieces
    std::array<bool, 2> AtGoal{}; ///< a king stands on a square that wins

    Long AllPieces() const { return Pieces[0] + Pieces[1]; }
};

/// Whether a king of `side` wins by standing there.
inline bool WinsAt(const Position& position, Long side, Long square) {
    if (position.Rules.WinAtPromo == 1) return IsPromotionSquare(position, -side, square);
    return position.Rules.KingWin == 1 && IsPromotionSquare(position, side, square);
}

inline Census TakeCensus(const Position& position) {
    Census census;
    Long whiteCode = 0;
    Long blackCode = 0;
    for (Long row = kFirstRow; row <= kLastRow; ++row) {
        for (Long column = kLastColumn; column >= 1; --column) {
            Long square = row * kBoardWidth + column;
            Long piece = position.Board[square];
            if (piece == kEmpty) continue;
            Long side = piece > 0 ? kWhite : kBlack;
            std::size_t s = SideIndex(side);
            ++census.Pieces[s];
            // A king is preferred as the target; among equals White's first and Black's last in the order of this scan,
            // each the one nearest to its own corner.
            if (side == kWhite) {
                if (piece > whiteCode) {
                    whiteCode = piece;
                    census.Target[s] = square;
                }
            } else if (piece <= blackCode) {
                blackCode = piece;
                census.Target[s] = square;
            }
            if (Magnitude(piece) == kMan) {
                ++census.Men[s];
            } else if (WinsAt(position, side, square)) {
                census.AtGoal[s] = true;
            }
        }
    }
    return census;
}

/// A short king loses mobility at the edges of the board.
inline Long KingAtEdge(Long square) {
    Long row = RowOf(square);
    Long column = ColumnOf(square);
    Long score = 0;
    if (column == 1 || column == kLastColumn) score -= 10;
    if (row == kFirstRow || row == kLastRow) score -= 10;
    return score;
}

/// A single repetition, in the game or in the line under search, is a draw; any other placement is remembered.
inline bool RepeatsElseStore(Position& position) {
    Long index = position.Tree.TreeIndex;
    PositionKey key = KeyOf(position.Board);
    auto keys = position.PositionKeys.begin();
    if (index > 1 && std::find(keys, keys + (index - 1), key) != keys + (index - 1)) return true;
    if (index > 0) position.PositionKeys[index - 1] = key;
    return false;
}

/// Two draws, so that the term is centred on 0.
inline Long Noise(SearchState& search) {
    if (search.NoiseRange == 0) return 0;
    auto draw = [&search] {
        return static_cast<Long>(std::floor(static_cast<double>(search.Random()) * 0x1p-32 * search.NoiseRange));
    };
    Long plus = draw();
    return plus - draw();
}

} // namespace tavlon12
