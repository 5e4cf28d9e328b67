#include "lab/family.h"

#include "engine/evaluate.h"
#include "engine/evaluation_tables.h"
#include "engine/fast_evaluate.h"
#include "rules/generate_moves.h"

namespace tavlon12::lab {

void BuildTables(Position& position, Family family, SearchState& search) {
    EvaluationTables& tables = search.Tables;
    BuildEvaluationTables(position, tables);
    if (tables.VariantFamily == family) return;
    BuildSquareValues(position, tables);
    AdoptFamily(position, tables, family);
}

Long GenerateLegalMovesOf(Family family, Position& position) {
    return family == Family::None ? GenerateLegalMoves(position) : GenerateLegalFamilyMoves(family, position);
}

Long CountLegalMovesOf(Family family, Position& position) {
    return family == Family::None ? CountLegalMoves(position) : CountFamilyMoves(family, position);
}

Long EvaluateOf(Family family, Position& position, SearchState& search, Long side) {
    if (family == Family::None) return Evaluate(position, search, -kWin, kWin, side);
    return EvaluateFamily(family, position, search, -kWin, kWin, side);
}

SearchMember MemberOf(const Position& position, const SearchState& search) {
    return SearchMemberOf(position, search);
}

} // namespace tavlon12::lab
