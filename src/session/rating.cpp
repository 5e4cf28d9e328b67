#include "session/rating.h"

namespace tavlon12 {

void UpdateRating(Session& session, [[maybe_unused]] double score) {
    session.RatingNote.clear();
}

} // namespace tavlon12
