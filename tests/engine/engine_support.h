#pragma once

#include "engine/evaluation_tables.h"
#include "engine/search_state.h"
#include "rules/generate_moves.h"
#include "support/positions.h"

#include <memory>
#include <string>
#include <string_view>

namespace tavlon12::support {

/// A position with the search's state for its rules, as a new game would leave both.
struct Engine {
    std::unique_ptr<Position> Pos;
    std::unique_ptr<SearchState> State = std::make_unique<SearchState>();

    explicit Engine(std::unique_ptr<Position> position) : Pos(std::move(position)) {
        CountMaterial();
        BuildEvaluationTables(*Pos, State->Tables);
    }

    Engine(std::string_view changedKeys, std::string_view placement, Long side = kWhite)
        : Engine(MakePosition(RulesWith(changedKeys), placement, side)) {}

    void CountMaterial() {
        Long balance = 0;
        Long sum = 0;
        for (Long cell : Pos->Board) {
            if (!IsLivePiece(cell)) continue;
            balance += cell;
            sum += Magnitude(cell);
        }
        Pos->Tree.PlyValue[Pos->Tree.Ply] = 100 * balance * Pos->Tree.SideToMove;
        Pos->Tree.PlyMaterial[Pos->Tree.Ply] = 100 * sum;
    }
};

/// What a search must leave as it was.
struct RootImage {
    BoardCells Board;
    Long Ply, TreeIndex, SideToMove, PlyValue, PlyMaterial, WhiteOffBoard, BlackOffBoard, FirstMove;

    bool operator==(const RootImage&) const = default;
};

inline RootImage ImageOf(const Position& position) {
    const GameTree& tree = position.Tree;
    return {position.Board,      tree.Ply,           tree.TreeIndex,     tree.SideToMove,     tree.PlyValue[0],
            tree.PlyMaterial[0], tree.WhiteOffBoard, tree.BlackOffBoard, tree.PlyFirstMove[0]};
}

/// White's king on a1 can jump nearly all of Black's men in one walk, more than a move holds, once a man has
/// moved.
inline std::unique_ptr<Position> WalkTooLongInLookahead() {
    std::string placement = "W: Ka1 e1; B:";
    for (char column : {'b', 'd', 'f', 'h', 'j'}) {
        for (char rank : {'2', '4', '6', '8', '0'}) placement.append(" ").append({column, rank});
    }
    return MakePosition(RulesWith("LongKings=0 | MaxCapMove=0"), placement, kBlack);
}

} // namespace tavlon12::support
