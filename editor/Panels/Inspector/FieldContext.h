#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Data/Inspected.h"
#include "Panels/Inspector/EulerAngles.h"

namespace VantrelEngine {

class ProjectFile;
class Thumbnails;

// What has been typed into a field and is not there yet.
struct Typing {
    unsigned item = 0;
    std::optional<double> number;
    std::optional<std::string> text;
};

// What fields remember from frame to frame.
struct FieldMemory {
    Typing typing;
    TypedAngles angles;

    // Why the last input was refused, and at which field.
    std::string refusal;
    std::size_t refusedField = 0;
    double refusedAt = 0.0;

    // Of the list that is open: what is searched, and what was found. Ids and names.
    std::string search;
    struct Found {
        std::string id, name;
    };
    std::vector<Found> found;
    bool isSearched = false;

    // The field that waits for an object that the user points at, by its item; 0 for none.
    struct Pick {
        unsigned item = 0;
        std::size_t field = 0;
        bool isDrawn = false;
        // The object's id in the document.
        std::optional<std::string> answer;
    };
    Pick pick;

    // A resource that the user wants to be shown.
    InspectedResource asked;

    // Where fields were drawn in the last frame, window points; for whoever looks for one.
    struct Place {
        std::size_t field;
        int part;
        float x, y;
    };
    std::vector<Place> places;
    // A field that has to be brought into sight; 0 for none.
    std::size_t wanted = 0;
};

// What fields show besides values.
struct FieldContext {
    const ProjectFile& file;
    Thumbnails& thumbnails;
    FieldMemory& memory;
};

// Notes where the UI's last item was drawn that stands for a field, or for one of its numbers; an item that is looked for
// and out of sight is brought there.
void notePlace(FieldMemory& memory, std::size_t field, int part = -1);
// The same of another place, window points.
void notePlace(FieldMemory& memory, std::size_t field, int part, float x, float y);

// A number for the name of a field.
inline std::size_t fieldNumber(std::string_view name) { return std::hash<std::string_view>{}(name); }

} // namespace VantrelEngine
