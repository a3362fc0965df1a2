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
    SelectedIds(): _ids{none()} {}
    SelectedIds(std::vector<std::string> ids):
        _ids{ids.empty() ? none() : std::make_shared<const std::vector<std::string>>(std::move(ids))} {}

    operator const std::vector<std::string>&() const { return *_ids; }
    auto begin() const { return _ids->begin(); }
    auto end() const { return _ids->end(); }
    std::size_t size() const { return _ids->size(); }
    bool empty() const { return _ids->empty(); }
    const std::string& operator[](std::size_t i) const { return (*_ids)[i]; }
    bool operator==(const SelectedIds& other) const { return _ids == other._ids || *_ids == *other._ids; }
    bool operator!=(const SelectedIds& other) const { return !(*this == other); }

private:
    static const std::shared_ptr<const std::vector<std::string>>& none() {
        static const auto ids = std::make_shared<const std::vector<std::string>>();
        return ids;
    }

    std::shared_ptr<const std::vector<std::string>> _ids;
};

} // namespace VantrelEngine
