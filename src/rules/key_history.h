#pragma once

#include "rules/game_tree.h"
#include "rules/position_key.h"

#include <array>
#include <cassert>

namespace tavlon12 {

/// The placements of the game and of the line under search: entry i is the one after half-move i + 1. The hashes lie
/// together, because a search compares with all of them at each node, and mostly in vain.
class KeyHistory {
public:
    const PositionKey& operator[](Long i) const { return Keys[i]; }

    void Set(Long i, const PositionKey& key) {
        assert(i >= 0 && i < kTreeSize);
        Keys[i] = key;
        Hashes[i] = Mixed(key);
    }

    void Fill(const PositionKey& key) {
        Keys.fill(key);
        Hashes.fill(Mixed(key));
    }

    /// Whether the key is among the first `count`.
    bool Has(const PositionKey& key, Long count) const {
        const std::uint64_t hash = Mixed(key);
        for (Long i = 0; i < count; ++i) {
            if (Hashes[i] == hash && Keys[i] == key) return true;
        }
        return false;
    }

    bool operator==(const KeyHistory&) const = default;

private:
    static std::uint64_t Mixed(const PositionKey& key) { return key.Hash[0] ^ key.Hash[1]; }

    std::array<std::uint64_t, kTreeSize> Hashes{};
    std::array<PositionKey, kTreeSize> Keys{};
};

} // namespace tavlon12
