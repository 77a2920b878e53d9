// SPDX-License-Identifier: MIT
/// Handles that programs hold: pointers to objects that a table owns. A handle is looked up before
/// it is used, so that one that is null, foreign or stale is refused.
#pragma once

#include <memory>
#include <unordered_map>

namespace kez::winapi {

template <class Object, class Handle>
class HandleTable {
public:
    Handle add(std::unique_ptr<Object> object)
    {
        void* key = object.get();
        objects_.emplace(key, std::move(object));
        return static_cast<Handle>(key);
    }

    [[nodiscard]] Object* find(Handle handle) const
    {
        const auto found = objects_.find(handle);
        return found != objects_.end() ? found->second.get() : nullptr;
    }

    bool remove(Handle handle) { return objects_.erase(handle) != 0; }

    [[nodiscard]] int count() const { return static_cast<int>(objects_.size()); }

    [[nodiscard]] auto begin() const { return objects_.begin(); }

    [[nodiscard]] auto end() const { return objects_.end(); }

private:
    std::unordered_map<const void*, std::unique_ptr<Object>> objects_;
};

} // namespace kez::winapi
