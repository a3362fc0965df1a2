#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/Reference.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Vantrel/EngineData/Json.h>

#include "Utils/StaticMap.h"

namespace VantrelEngine {

class ProjectFile;

// One edit of the project document.
struct Change {
    Corrade::Containers::String path;  // JSON pointer of the edited value
    std::optional<JsonValue> oldValue; // none: nothing stood there
    std::optional<JsonValue> newValue; // none: the value is removed
    std::int32_t group = -1;           // the group that was open, -1 for none

    // Of a removal that took away the object or array around the value, too, because that was empty then: the outermost
    // one with all that was in it, which undo puts back.
    struct Pruned {
        Corrade::Containers::String path;
        JsonValue value;
    };
    std::unique_ptr<Pruned> pruned;
};

// Changes that may be taken back as if they had never been.
enum class Trial : std::uint8_t {
    None,
    // Of a gesture, as a drag: nothing else is done meanwhile.
    Gesture,
    // Of something that is only shown: whatever else the user wants to do ends it.
    Preview
};

class ChangeListener {
public:
    virtual ~ChangeListener() = default;
    // A change was applied. components are the pieces of its path between the
    // "/", the empty one in front included. A listener makes no changes itself.
    virtual void onChange(
        const Change& change, Corrade::Containers::ArrayView<const Corrade::Containers::StringView> components) = 0;
};

// The undo log of the project document. Recording a change applies it at once
// and keeps what stood there before.
//
// Changes recorded while a group is open are undone together, and listeners
// hear of them when the group is committed; a change outside of a group is
// announced at once. One user gesture is one group: a drag opens it anew with
// the same key each frame, records with the merge flag, and commits.
//
// Used from the user interface's thread only.
class CORRADE_VISIBILITY_EXPORT ChangeManager {
public:
    // The project file outlives the manager.
    explicit ChangeManager(ProjectFile& projectFile);
    ChangeManager(const ChangeManager&) = delete;
    ChangeManager& operator=(const ChangeManager&) = delete;

    // Listeners hear of each change whose path has this component, at any place;
    // one that is registered for several components of a path hears of it several
    // times. Not owned. Register all of them, then call compileListeners(),
    // before the first change is made.
    void addListener(Corrade::Containers::StringView component, ChangeListener& listener);
    void compileListeners();

    // Opens a group for a gesture, or opens the gesture's group again: a new
    // group is begun unless the gesture is under way and its key is that of the
    // last group.
    void beginGroup(std::uint64_t key, bool underWay);
    // Opens a new group.
    void beginGroup() { beginGroup(0, false); }

    // Records one change and applies it. A null value removes what stands at the
    // path; who removes several members of one object removes the last one first: little has to move up then, and undo
    // puts them back in their order. With merge set, an earlier change of the same path in the same group
    // takes the new value instead (the first change of the log never does), so
    // that undo leads to the state before the first of them.
    //
    // A path that cannot be written without destroying a value on the way, and an edit that the project file's guard
    // does not allow, is refused with one line: the document and the log stay as they are.
    void recordChange(Corrade::Containers::StringView path, const JsonValue* value, bool merge);
    // The same for a value whose parents may be missing, as those of a setting in a project that has only some of them:
    // they are made and recorded together with it, as one value, so that undo takes all of it away. An index makes an
    // array, any other token an object.
    void recordWithParents(Corrade::Containers::StringView path, const JsonValue& value, bool merge);
    void recordString(Corrade::Containers::StringView path, Corrade::Containers::StringView text, bool merge);
    // An array of three numbers.
    void recordVector3(Corrade::Containers::StringView path, const Magnum::Vector3& vector, bool merge);
    // "/translation", "/rotation" (x, y, z, w) and "/scaling" below the object
    // path, in this order, from a local transformation. Aborts where its rotation
    // is none, see rotationFromMatrix(). A factor of the scaling that the document has as zero, and that is what the
    // engine computes with instead, stays zero.
    void recordTransform(Corrade::Containers::StringView objectPath, const Magnum::Matrix4& transformation, bool merge);
    // The same of its three parts, which keeps the signs of the scaling, and all digits. The rotation is a unit quaternion.
    void recordTransform(Corrade::Containers::StringView objectPath, const Magnum::Vector3& translation,
        const Magnum::Quaternion& rotation, Magnum::Vector3 scaling, bool merge);

    // Forgets all changes: another document is in place. Listeners stay. Aborts while a group is open.
    void clear();

    // Puts a log in the place of the empty one, whose records up to lastChange the document has in effect. Their groups are
    // numbered from 1 on, each a run of its own. Aborts where the log is not empty, or a group is open.
    void restore(std::vector<Change> changes, std::int32_t lastChange);

    // From now on what is recorded is on trial. What could be redone is kept aside meanwhile. A trial that is under way is
    // kept first. Aborts while a group is open.
    void beginTrial(Trial kind);
    // What was recorded since stays, as one step of undo. Where that is nothing, what could be redone can be redone again.
    // Nothing where no trial is under way; aborts while a group is open.
    void keepTrial();
    // Undoes what was recorded since, and forgets it: what can be redone, and what counts as saved, is as it was before.
    // Nothing where no trial is under way; aborts while a group is open.
    void dropTrial();
    // Undoes, and forgets, what of the trial was recorded behind the record of this index; the trial goes on. Aborts while
    // a group is open, without a trial, and for an index before the trial's.
    void rewindTrial(std::int32_t lastChange);
    Trial trial() const { return _trial; }

    // Closes the open group and announces its changes in the order of the log.
    void commit();

    // Undoes the last change, or the last group; of a trial all of it, see dropTrial(). Aborts while a group is open.
    void undoLast();
    // Applies again what was undone last. Nothing to redo is left after a new
    // change, and during a trial. Aborts while a group is open.
    void redoLast();
    bool canUndo() const { return _lastChange >= 0; }
    bool canRedo() const { return std::size_t(_lastChange + 1) < _changes.size(); }

    // The last change in effect; there must be one.
    const Change& currentChange() const;
    // All of the log, undone changes at its end included, and the index of the
    // last one in effect (-1: none).
    Corrade::Containers::ArrayView<const Change> changes() const { return {_changes.data(), _changes.size()}; }
    std::int32_t lastChange() const { return _lastChange; }
    // The open group, -1 for none.
    std::int32_t group() const { return _group; }
    // Counts what was written into the document, undone and merged changes included: whoever keeps something of the
    // document asks whether it is another one.
    std::uint64_t appliedCount() const { return _appliedCount; }

    // Index of the first record that is another one than when markSeen() was called; at most the size of the log, and as
    // much where none is. For one reader, who asks when no trial is under way.
    std::int32_t firstUnseen() const { return std::min(_firstUnseen, std::int32_t(_changes.size())); }
    void markSeen() { _firstUnseen = std::int32_t(_changes.size()); }

    // Remembers the present state as the one that is saved.
    void markSaved();
    // Whether the document differs from the state that was marked (at first, from
    // the state without changes).
    bool hasUnsavedChanges() const { return !_markIsValid || _markedChange != _lastChange; }
    // The last change in effect in that state (-1: none); none where undo and redo do not lead to it.
    std::optional<std::int32_t> savedChange() const {
        return _markIsValid ? std::optional<std::int32_t>{_markedChange} : std::nullopt;
    }

private:
    // The records that a merge may find: those of one group that end the log.
    // Finds the last of a path without a walk.
    class MergeIndex {
    public:
        void clear() { _groupOfRun = NoRun; }
        // Index of the record above 0 nearest to the end of the run that ends with
        // last, or -1.
        std::int32_t find(const std::vector<Change>& changes, std::int32_t last, std::int32_t group,
            Corrade::Containers::StringView path);
        void appended(const std::vector<Change>& changes, std::int32_t last);
        void swapped(const std::vector<Change>& changes, std::int32_t a, std::int32_t b);

    private:
        static constexpr std::int64_t NoRun = INT64_MIN;

        void build(const std::vector<Change>& changes, std::int32_t last, std::int32_t group);
        void add(const std::vector<Change>& changes, std::int32_t i);
        void move(const std::vector<Change>& changes, std::int32_t from, std::int32_t to);

        std::unordered_multimap<std::size_t, std::int32_t> _records; // by the hash of the path
        std::int64_t _groupOfRun = NoRun;
        std::int32_t _last = -1;
    };

    // What a trial puts back where it is dropped.
    struct KeptAside {
        std::vector<Change> undone;
        std::int32_t lastChange = -1;
        std::int32_t markedChange = -1;
        std::int32_t firstUnseen = 0;
        bool markIsValid = true;
    };

    void record(Corrade::Containers::StringView path, std::optional<JsonValue> value, bool merge);
    void putBackKeptAside();
    void joinTrial();
    void rememberPruned(Change& change);
    bool isRefused(Corrade::Containers::StringView path, const JsonValue* value, const JsonValue* current) const;
    void keepZeroScaling(Corrade::Containers::StringView objectPath, Magnum::Vector3& scaling) const;
    void appendChange();
    // Changes places with the last record.
    void moveToEnd(std::int32_t i);
    void checkLastChange() const;
    // target is what stands at the path, null for nothing.
    void applyChange(const Change& change, JsonValue* target);
    void notify(const Change& change);
    void undo(const Change& change);

    std::int32_t _lastChange = -1;   // index of the last change in effect
    std::int32_t _markedChange = -1; // _lastChange of the state that was marked
    std::int32_t _group = -1;
    std::uint64_t _groupKey = 0;
    std::int32_t _groupCounter = 0; // the last number given to a group; 0 is given to none
    ProjectFile& _projectFile;
    std::vector<Change> _changes;
    StaticMap<Corrade::Containers::Array<Corrade::Containers::Reference<ChangeListener>>> _listeners;
    MergeIndex _mergeIndex;
    KeptAside _keptAside;
    std::int32_t _firstUnseen = 0;
    std::uint64_t _appliedCount = 0;
    Trial _trial = Trial::None;
    bool _isNotifying = false;
    bool _markIsValid = true; // false: the marked state cannot be reached by undo
                              // and redo any more
};

} // namespace VantrelEngine
