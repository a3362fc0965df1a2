#pragma once

#include <cstdint>

#include <Vantrel/EditorData/EditorData.h>

#include "ChangeManager.h"

namespace VantrelEngine {

// Another one whenever the document is another, or what was compiled of it.
struct DocumentState {
    std::uint32_t project = ~0u, revision = 0;
    std::uint64_t appliedCount = 0;

    DocumentState() = default;
    explicit DocumentState(const EditorData& data, const ChangeManager& changes):
        project{data.projectNumber}, revision{data.scene().revisions().revision()}, appliedCount{
                                                                                        changes.appliedCount()} {}

    bool operator==(const DocumentState& other) const {
        return project == other.project && revision == other.revision && appliedCount == other.appliedCount;
    }
};

} // namespace VantrelEngine
