#pragma once

#include <string>

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class EditorData;
class OutlinerRows;
struct OutlinerRow;

// Where a row was clicked.
enum class RowPart { Body, Fold, Eye, Lock };

struct RowResponse {
    bool isClicked = false;
    bool isDoubleClicked = false;
    RowPart part = RowPart::Body;
    // Of a name that is edited: it is to be taken, or nothing came of it.
    bool isNamed = false;
    bool isNamingOver = false;
};

// A name that is edited in its row.
struct RowNaming {
    Id object = NoObject;
    std::string text;
    // The field has not got the focus yet.
    bool isNew = false;
};

// Draws a row at the cursor, as the last item, over the whole width: fold, icon, name, and at the end the eye and the lock.
// An object that is hidden is dim.
RowResponse drawRow(const EditorData& data, const OutlinerRows& rows, const OutlinerRow& row, RowNaming& naming);

// Window points.
float rowHeight();

} // namespace VantrelEngine
