#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "Data/Project/NumberedIds.h"
#include "Data/Scene/AncestryForest.h"

namespace VantrelEngine {

class ProjectFile;

// Answers, edit after edit, whether an object of the document would become its own ancestor: the tree of the document,
// with the parents that do not exist. Read from the document when it is first asked for, in linear time; from then on
// an answer, and an object whose parent changed, take amortised logarithmic time. Occupies about 40 bytes an object,
// and the bytes of its id, from then on.
class Ancestry {
public:
    explicit Ancestry() = default;

    // Whether the object, which may be yet to come, stands above the parent in the document or is the parent. Parents
    // that do not exist count.
    bool isAncestor(const ProjectFile& file, std::string_view object, std::string_view parent);

    // Whether there is anything that edits could make untrue.
    bool isRead() const { return _mostIds; }
    // The object came, went, or has another parent in the document. It is looked at with the next question: edits in
    // a row may pass through what is no tree.
    void parentChanged(std::string_view object);

    // The document was changed by other means.
    void forget();

private:
    using Node = NumberedIds::Number;
    // The empty text, which is the parent of those without one.
    static constexpr Node Root = 0;

    void build(const ProjectFile& file);
    void update(const ProjectFile& file);
    // A new one stands at the root.
    Node nodeOf(std::string_view id);

    NumberedIds _ids;
    AncestryForest<Node> _forest;
    // Nodes that are to be looked at, and, by node, whether it is one.
    std::vector<Node> _changed;
    std::vector<bool> _isChanged;
    // With so many ids, most of which may be gone, the document is read anew. 0: it was not read yet.
    std::size_t _mostIds = 0;
};

} // namespace VantrelEngine
