#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

#include "Measure.h"

// Each verb prints a line of JSON for each of its cases.
namespace VantrelBench {

// Transformations of many points, beside plain loops over floats.
void math();

// String search and split, formatting and array growth, beside the C and C++ standard libraries.
void containers();

// A project is generated, opened, edited. N is the number of its objects; where an exponent against N is asked for,
// 1,000 and 10,000 stand beside it. The budget is that of one measurement, of which a verb makes several. Each verb prints what it holds itself to: lines with "holds".

// Opening a project, in a fresh session and again in the same one, on every topology.
void open(std::size_t count, const Budget& budget);

// Compiling what was read, on one topology or on "all"; and beside the bare minimum on the same document.
void compile(std::size_t count, const std::string& topology, const Budget& budget);

// One object edited and compiled.
void compileOne(std::size_t count, const Budget& budget);

// Changes outside of groups; and beside a bare log.
void record(std::size_t count, std::size_t changes, const Budget& budget);

// Frames in which so many objects are dragged.
void drag(std::size_t count, std::size_t dragged, std::size_t frames, const Budget& budget);
// The same in a view of a grid of at most 10,000 objects, by the mouse and drawn; and a drag of so many times 60 frames
// of at most 1,000 objects, whose last frames cost what its first ones do.
void dragInView(std::size_t count, std::size_t dragged, std::size_t frames, const Budget& budget);

// Undoing a drag of so many objects.
void undo(std::size_t count, std::size_t dragged, const Budget& budget);
// The same in a view, with the frame that shows it.
void undoInView(std::size_t count, std::size_t dragged, const Budget& budget);

// How many frames it takes until what was done is seen: an edit, a click, a drag, a movement of the camera.
void lag(std::size_t count);

// The same with a journal beside without one, until the step is written; and steps that are brought back from one.
void journal(std::size_t count, std::size_t dragged, std::size_t frames, const Budget& budget);

// Deleting so many objects, the last one first; and in the order of the document.
void deleteObjects(std::size_t count, std::size_t deleted, const Budget& budget);

// Duplicating so many objects, each alone, until they are in the scene and selected. The project has at most half of the
// objects that one can have.
void duplicateObjects(std::size_t count, std::size_t duplicated, const Budget& budget);

// So many objects moved below other parents, one by one in one group: recording, and apart from it compiling.
void reparent(std::size_t count, std::size_t moved, const Budget& budget);

// Absolute transformations beside a bare loop.
void transform(std::size_t count, const Budget& budget);

// Bytes an object and a change; and of video memory, in a view of a grid of as many objects.
void memory(std::size_t count);

// The scene view out of its module, in a host without a window, on a grid of N objects that fills its picture.

// Bringing the renderer up to date when nothing, one aspect (of reloadAspects(), or "all") or one object's place changed,
// without drawing.
void reload(std::size_t count, const std::string& aspect, const Budget& budget);
std::vector<std::string> reloadAspects();

// Frames in which nothing moves; and beside plain draw calls, in a picture of 64 by 64 pixels.
void frame(std::size_t count, const Magnum::Vector2i& size, const Budget& budget);

// With a part of the objects behind the camera, beside all of them in front of it; and the culling beside a bare loop.
void frameOutside(std::size_t count, const Magnum::Vector2i& size, double outside, const Budget& budget);

// With so many lights, each of which reaches a part of the grid.
void frameLights(std::size_t count, const Magnum::Vector2i& size, std::size_t lights, const Budget& budget);

// The shadow maps of a sun with so many cascades: what is drawn into them at first, when nothing and when one moved.
void shadow(std::size_t count, std::size_t cascades);

// The key that brings what is selected into view, with all of a project selected, on one topology or on "all".
void frameSelection(std::size_t count, const std::string& topology, const Budget& budget);

// What happens when nothing does.
void idle(std::size_t count);

// The outline of so many selected objects, up to a width in pixels, beside plain passes over the picture.
void outline(std::size_t count, std::size_t selected, const Magnum::Vector2i& size, double width, const Budget& budget);

// A click on an object of a picture that is done.
void pick(std::size_t count, const Budget& budget);

// A box over all of the picture, beside a bare readback of the ids with one pass of a bit set over them.
void box(std::size_t count, const Magnum::Vector2i& size, const Budget& budget);

// The glow of a kernel's size and number of passes, at least 3, beside plain blurs; and how its time grows with both.
void bloom(int kernelSize, int passes, const Magnum::Vector2i& size, const Budget& budget);

// The panel of all objects: a frame in which nothing changes, one after an edit of one object, and a search.
void outliner(std::size_t count, const Budget& budget);

// So many changes of the picture's size, beside plain allocations.
void resize(std::size_t count);

// Importing a model: the whole process, beside Assimp reading the same file without doing anything with it; and its
// stages, by the clock.
void importFile(const std::string& path, const Budget& budget);

// From the start of the program to the first frame of a project, by stage; and the frame after it.
void startup(const std::string& path);

// The view's module loaded again so many times, beside a reload of everything.
void hotReload(std::size_t count, std::size_t reloads);

// Runs this program and another vantrel-bench in turn with the same verb and prints how their figures compare. program
// is the path of this one. Returns the exit status.
int against(const std::string& program, const std::string& other, const std::vector<std::string>& arguments);

}
