#pragma once

#include <vector>

#include <VantrelHost/DocumentProblem.h>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// Looks through a document that was read just now, whose root is an object of at most MaxNesting levels, and repairs
// what would stand in the way of editing it. Linear. Problems come in the order of the document's sections and of their
// members.
//
// Refused: a section that is no object, an object that is none or has no id, more than MaxObjects objects.
// Repaired: keys that stand more than once (the first stays), parents in a cycle (its first object goes to the root), a
// bloom kernel's size out of range. "objects" is made, without a word, where it is missing.
// Warned of: parents that do not exist, and values that the engine cannot read; they stay as they are.
std::vector<DocumentProblem> checkDocument(JsonDocument& document);

} // namespace VantrelEngine
