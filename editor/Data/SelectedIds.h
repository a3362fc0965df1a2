#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VantrelEngine {

// What was selected: ids of the document. Copies share the list, since most steps begin with the selection that the one
// before ended with.
class SelectedIds {
public:
    SelectedIds(): _ids{empty()} {}
    SelectedIds(std::vector<std::string> ids):
        _ids{ids.empty() ? empty() : std::make_shared<const std::vector<std::string>>(std::move(ids))} {}

    operator const std::vector<std::string>&() const { return *_ids; }
    auto begin() const { return _ids->begin(); }
    auto end() const { return _ids->end(); }
    std::size_t size() const { return _ids->size(); }
    // Whether it is the same list, without a look at what is in it.
    bool isSharedWith(const SelectedIds& other) const { return _ids == other._ids; }

private:
    static const std::shared_ptr<const std::vector<std::string>>& empty() {
        static const auto ids = std::make_shared<const std::vector<std::string>>();
        return ids;
    }

    std::shared_ptr<const std::vector<std::string>> _ids;
};

} // namespace VantrelEngine
