#include "ChangeManager.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <functional>
#include <iterator>
#include <string_view>
#include <utility>

#include <Corrade/Containers/GrowableArray.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <Vantrel/EngineData/JsonObject.h>
#include <Vantrel/EngineData/ProjectFile.h>

#include "JsonEdit.h"
#include "Utils/Assert.h"
#include "Utils/CheckedMath.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
using namespace Containers::Literals;

namespace {

std::size_t hashOf(Containers::StringView path) { return std::hash<std::string_view>{}({path.data(), path.size()}); }

std::optional<JsonValue> copyIfAny(const JsonValue* value, JsonAllocator& allocator) {
    if(!value) return std::nullopt;
    return copyOf(*value, allocator);
}

const JsonValue* valueOf(const std::optional<JsonValue>& value) { return value ? &*value : nullptr; }

// None for what is no index, or too far behind the beginning of an array that is to be made.
std::optional<std::size_t> paddableIndex(Containers::StringView token) {
    std::size_t index = 0;
    if(token.hasPrefix('-') && token.size() == 1) return index;
    const std::from_chars_result read = std::from_chars(token.begin(), token.end(), index);
    const bool isIndex = read.ec == std::errc{} && read.ptr == token.end() && (token.size() == 1 || token[0] != '0');
    return isIndex && index <= ProjectFile::MaximumPadding ? std::optional<std::size_t>{index} : std::nullopt;
}

// What is written below a member of a section changes no index of the project file.
bool isBelowSection(Containers::StringView path) { return std::count(path.begin(), path.end(), '/') > 2; }

template<std::size_t count> JsonValue numbers(const double (&values)[count], JsonAllocator& allocator) {
    JsonValue array{rapidjson::kArrayType};
    array.Reserve(rapidjson::SizeType(count), allocator);
    for(const double value: values) array.PushBack(value, allocator);
    return array;
}

} // namespace

ChangeManager::ChangeManager(ProjectFile& projectFile): _projectFile{projectFile} {}

void ChangeManager::addListener(Containers::StringView component, ChangeListener& listener) {
    arrayAppend(_listeners[component], InPlaceInit, listener);
}

void ChangeManager::compileListeners() { _listeners.compile(); }

void ChangeManager::beginGroup(std::uint64_t key, bool underWay) {
    // Number 0 is given to no group, not even to a gesture that claims to be under way before there was any.
    if(!underWay || key != _groupKey || !_groupCounter) ++_groupCounter;
    _group = _groupCounter;
    _groupKey = key;
}

void ChangeManager::recordChange(Containers::StringView path, const JsonValue* value, bool merge) {
    record(path, copyIfAny(value, _projectFile.allocator()), merge);
}

void ChangeManager::recordWithParents(Containers::StringView path, const JsonValue& value, bool merge) {
    JsonAllocator& allocator = _projectFile.allocator();
    // What is missing is found from below; each step up puts the value into an array or an object of its own.
    JsonValue nested = copyOf(value, allocator);
    SplitPath split = splitLast(path);
    while(!split.parent.isEmpty() && !_projectFile.valueByPointer(split.parent)) {
        JsonValue container;
        if(const std::optional<std::size_t> index = paddableIndex(split.token)) {
            container.SetArray().Reserve(rapidjson::SizeType(*index + 1), allocator);
            while(container.Size() != *index) container.PushBack(JsonValue{}, allocator);
            container.PushBack(nested, allocator);
        } else {
            const std::string name = unescaped(split.token);
            container.SetObject().AddMember(
                JsonValue{name.c_str(), rapidjson::SizeType(name.size()), allocator}, nested, allocator);
        }
        nested = std::move(container);
        path = split.parent;
        split = splitLast(path);
    }
    record(path, std::move(nested), merge);
}

void ChangeManager::record(Containers::StringView path, std::optional<JsonValue> value, bool merge) {
    CORRADE_ASSERT(!_isNotifying, "ChangeManager::recordChange(): a listener cannot make changes", );
    ProjectFile::EditGuard* const guard = _projectFile.editGuard();
    if(guard && value) guard->adjust(path, *value);
    JsonValue* const current = _projectFile.valueByPointer(path);
    if(isRefused(path, valueOf(value), current)) return;
    std::int32_t merged = merge ? _mergeIndex.find(_changes, _lastChange, _group, path) : -1;
    // What is not on trial takes no part in it.
    if(_trial != Trial::None && merged <= _keptAside.lastChange) merged = -1;
    if(merged >= 0) {
        _firstUnseen = std::min(_firstUnseen, merged);
        moveToEnd(merged);
        // The states from the merged record on are others now; a mark among them
        // stands for none of them.
        if(_markedChange >= merged) _markIsValid = false;
    } else {
        // The path may be that of a record, which moves.
        Containers::String ownPath = path;
        appendChange();
        _changes[std::size_t(_lastChange)].path = std::move(ownPath);
    }
    checkLastChange();
    Change& change = _changes[std::size_t(_lastChange)];
    if(merged < 0) change.oldValue = copyIfAny(current, _projectFile.allocator());
    change.newValue = std::move(value);
    change.group = _group;
    rememberPruned(change);
    if(merged < 0) _mergeIndex.appended(_changes, _lastChange);
    applyChange(change, current);
}

// A merged change that removes the value later in its gesture keeps what stood around it at that time.
void ChangeManager::rememberPruned(Change& change) {
    change.pruned.reset();
    if(change.newValue || !_projectFile.valueByPointer(change.path)) return;
    const Containers::StringView pruned = prunedWith(_projectFile, change.path);
    if(pruned.isEmpty()) return;
    const JsonValue& value = *_projectFile.valueByPointer(pruned);
    change.pruned.reset(new Change::Pruned{pruned, copyOf(value, _projectFile.allocator())});
}

void ChangeManager::recordString(Containers::StringView path, Containers::StringView text, bool merge) {
    // A null view has no characters to copy.
    record(path, JsonValue{text.data() ? text.data() : "", rapidjson::SizeType(text.size()), _projectFile.allocator()},
        merge);
}

void ChangeManager::recordVector3(Containers::StringView path, const Vector3& vector, bool merge) {
    record(
        path, numbers({double(vector.x()), double(vector.y()), double(vector.z())}, _projectFile.allocator()), merge);
}

void ChangeManager::recordTransform(Containers::StringView objectPath, const Matrix4& transformation, bool merge) {
    const Quaternion rotation = rotationFromMatrix(transformation.rotationShear());
    recordTransform(objectPath, transformation.translation(), rotation, transformation.scaling(), merge);
}

void ChangeManager::recordTransform(Containers::StringView objectPath, const Vector3& translation,
    const Quaternion& rotation, Vector3 scaling, bool merge) {
    keepZeroScaling(objectPath, scaling);
    recordVector3(objectPath + "/translation"_s, translation, merge);
    const Vector3 vector = rotation.vector();
    record(objectPath + "/rotation"_s,
        numbers({double(vector.x()), double(vector.y()), double(vector.z()), double(rotation.scalar())},
            _projectFile.allocator()),
        merge);
    recordVector3(objectPath + "/scaling"_s, scaling, merge);
}

void ChangeManager::keepZeroScaling(Containers::StringView objectPath, Vector3& scaling) const {
    // Taking a matrix apart costs some of the last digits.
    const auto isStandIn = [](float factor) {
        return std::abs(std::abs(factor) - SafeScaling) < 1.0e-3f * SafeScaling;
    };
    if(!isStandIn(scaling.x()) && !isStandIn(scaling.y()) && !isStandIn(scaling.z())) return;
    const JsonValue* const document = _projectFile.valueByPointer(objectPath + "/scaling"_s);
    if(!document || !document->IsArray() || document->Size() != 3) return;
    for(rapidjson::SizeType i = 0; i != 3; ++i)
        if(isStandIn(scaling[i]) && (*document)[i].IsNumber() && (*document)[i].GetDouble() == 0.0) scaling[i] = 0.0f;
}

void ChangeManager::commit() {
    const std::int32_t group = std::exchange(_group, -1);
    std::int32_t first = _lastChange + 1;
    while(first > 0 && _changes[std::size_t(first - 1)].group == group) --first;
    for(std::int32_t i = first; i <= _lastChange; ++i) notify(_changes[std::size_t(i)]);
}

void ChangeManager::undoLast() {
    CORRADE_ASSERT(_group < 0,
        "ChangeManager::undoLast(): Can't undo/redo changes in group. "
        "Forgot commit()?", );
    if(_trial != Trial::None) return dropTrial();
    if(_lastChange == -1) return;
    _mergeIndex.clear();
    // A change without a group has -1 and is undone alone: no group has the
    // number 0.
    const std::int32_t group = std::max(currentChange().group, 0);
    for(;;) {
        undo(currentChange());
        if(_lastChange-- == 0) break;
        checkLastChange();
        if(currentChange().group != group) break;
    }
}

void ChangeManager::undo(const Change& change) {
    JsonAllocator& allocator = _projectFile.allocator();
    Change inverse;
    inverse.path = change.path;
    inverse.oldValue = copyIfAny(valueOf(change.newValue), allocator);
    inverse.newValue = copyIfAny(valueOf(change.oldValue), allocator);
    // With the container comes what was in it last: of a merged change that is not the value from before it.
    if(change.pruned) {
        insertValue(_projectFile, change.pruned->path, change.pruned->value);
        if(inverse.newValue) inverse.oldValue = JsonValue{};
    }
    applyChange(inverse, _projectFile.valueByPointer(inverse.path));
}

void ChangeManager::clear() {
    CORRADE_ASSERT(_group < 0, "ChangeManager::clear(): a group is open. Forgot commit()?", );
    _changes.clear();
    _mergeIndex.clear();
    _lastChange = -1;
    _markedChange = -1;
    _markIsValid = true;
    _groupKey = 0;
    _firstUnseen = 0;
    _keptAside = {};
    _trial = Trial::None;
}

void ChangeManager::restore(std::vector<Change> changes, std::int32_t lastChange) {
    CORRADE_ASSERT(_changes.empty() && _group < 0 && _trial == Trial::None,
        "ChangeManager::restore(): the log is not empty, or in use", );
    CORRADE_ASSERT(lastChange >= -1 && lastChange < std::int32_t(changes.size()),
        "ChangeManager::restore(): there is no change" << lastChange, );
    _changes = std::move(changes);
    _lastChange = lastChange;
    for(const Change& change: _changes) _groupCounter = std::max(_groupCounter, change.group);
}

void ChangeManager::beginTrial(Trial kind) {
    CORRADE_ASSERT(_group < 0, "ChangeManager::beginTrial(): a group is open. Forgot commit()?", );
    keepTrial();
    const auto undone = _changes.begin() + (_lastChange + 1);
    _keptAside.lastChange = _lastChange;
    _keptAside.markedChange = _markedChange;
    _keptAside.markIsValid = _markIsValid;
    _keptAside.firstUnseen = _firstUnseen;
    _keptAside.undone.assign(std::move_iterator{undone}, std::move_iterator{_changes.end()});
    _changes.erase(undone, _changes.end());
    if(_markedChange > _lastChange) _markIsValid = false;
    _trial = kind;
    // No gesture goes on from before.
    ++_groupCounter;
}

void ChangeManager::keepTrial() {
    CORRADE_ASSERT(_group < 0, "ChangeManager::keepTrial(): a group is open. Forgot commit()?", );
    if(_trial == Trial::None) return;
    if(_lastChange == _keptAside.lastChange)
        putBackKeptAside();
    else
        joinTrial();
    _keptAside = {};
    _trial = Trial::None;
}

void ChangeManager::dropTrial() {
    CORRADE_ASSERT(_group < 0, "ChangeManager::dropTrial(): a group is open. Forgot commit()?", );
    if(_trial == Trial::None) return;
    for(; _lastChange != _keptAside.lastChange; --_lastChange) undo(currentChange());
    _mergeIndex.clear();
    putBackKeptAside();
    _keptAside = {};
    _trial = Trial::None;
}

void ChangeManager::rewindTrial(std::int32_t lastChange) {
    CORRADE_ASSERT(_group < 0, "ChangeManager::rewindTrial(): a group is open. Forgot commit()?", );
    CORRADE_ASSERT(_trial != Trial::None && lastChange >= _keptAside.lastChange && lastChange <= _lastChange,
        "ChangeManager::rewindTrial(): this is not on trial", );
    for(; _lastChange != lastChange; --_lastChange) undo(currentChange());
    _changes.erase(_changes.begin() + (_lastChange + 1), _changes.end());
    _mergeIndex.clear();
}

void ChangeManager::putBackKeptAside() {
    _changes.erase(_changes.begin() + (_lastChange + 1), _changes.end());
    std::move(_keptAside.undone.begin(), _keptAside.undone.end(), std::back_inserter(_changes));
    _markedChange = _keptAside.markedChange;
    _markIsValid = _keptAside.markIsValid;
    _firstUnseen = _keptAside.firstUnseen;
}

// Several groups of one trial, as of a gesture that was changed on its way, are undone together.
void ChangeManager::joinTrial() {
    const auto first = _changes.begin() + (_keptAside.lastChange + 1);
    const auto isOther = [&](const Change& change) { return change.group != first->group; };
    const bool isSingle = first + 1 == _changes.end();
    if(isSingle || (first->group > 0 && std::none_of(first, _changes.end(), isOther))) return;
    ++_groupCounter;
    for(auto change = first; change != _changes.end(); ++change) change->group = _groupCounter;
    _mergeIndex.clear();
}

void ChangeManager::redoLast() {
    CORRADE_ASSERT(_group < 0,
        "ChangeManager::redoLast(): Can't undo/redo changes in group. "
        "Forgot commit()?", );
    if(!canRedo()) return;
    _mergeIndex.clear();
    const std::int32_t group = std::max(_changes[std::size_t(_lastChange + 1)].group, 0);
    do {
        const Change& change = _changes[std::size_t(++_lastChange)];
        applyChange(change, _projectFile.valueByPointer(change.path));
    } while(canRedo() && _changes[std::size_t(_lastChange + 1)].group == group);
}

const Change& ChangeManager::currentChange() const {
    checkLastChange();
    return _changes[std::size_t(_lastChange)];
}

void ChangeManager::markSaved() {
    _markedChange = _lastChange;
    _markIsValid = true;
}

bool ChangeManager::isRefused(Containers::StringView path, const JsonValue* value, const JsonValue* current) const {
    const auto refuse = [&](const char* reason) {
        Utility::Error{} << "ChangeManager::recordChange(): cannot change" << path << Utility::Debug::nospace << ":"
                         << reason;
        return true;
    };
    if(value && path.isEmpty()) return refuse("the root cannot be replaced");
    // A pointer in a URI fragment names the same values by other texts, which listeners would not know.
    if(path.hasPrefix('#')) return refuse("a pointer begins with \"/\"");
    // What stands there already can be written.
    if(value && !current) {
        const SplitPath split = splitLast(path);
        const JsonValue* const parent = _projectFile.valueByPointer(split.parent);
        // A value below a parent that does not take it is a mistake of the caller and aborts when it is applied.
        const bool isMistake = parent && !parent->IsObject() && !(parent->IsArray() && isIndexToken(split.token));
        if(const char* const reason = isMistake ? nullptr : _projectFile.whyNotCreatable(path)) return refuse(reason);
    }
    if(ProjectFile::EditGuard* const guard = _projectFile.editGuard()) {
        const std::string reason = guard->whyRefused(_projectFile, path, value);
        if(!reason.empty()) return refuse(reason.c_str());
    }
    return false;
}

void ChangeManager::moveToEnd(std::int32_t i) {
    if(i == _lastChange) return;
    _mergeIndex.swapped(_changes, i, _lastChange);
    std::swap(_changes[std::size_t(i)], _changes[std::size_t(_lastChange)]);
}

void ChangeManager::appendChange() {
    ++_lastChange;
    // Ends the redo tail; the storage has spare room, the log has not.
    const bool hadTail = std::size_t(_lastChange) < _changes.size();
    if(hadTail) _changes.erase(_changes.begin() + _lastChange, _changes.end());
    _changes.emplace_back();
    _firstUnseen = std::min(_firstUnseen, _lastChange);
    if(_markedChange == _lastChange) {
        _markedChange = -1;
        _markIsValid = false;
    } else if(hadTail && _markedChange > _lastChange) {
        _markIsValid = false;
    }
}

void ChangeManager::checkLastChange() const {
    VANTREL_ASSERT(_lastChange >= 0 && _lastChange < int(_changes.size()), "ChangeManager", 375);
}

void ChangeManager::applyChange(const Change& change, JsonValue* target) {
    ++_appliedCount;
    if(!change.newValue)
        eraseValue(_projectFile, change.path);
    else if(!change.oldValue)
        insertValue(_projectFile, change.path, *change.newValue);
    else if(target && isBelowSection(change.path))
        *target = copyOf(*change.newValue, _projectFile.allocator());
    else
        replaceValue(_projectFile, change.path, *change.newValue);
    if(ProjectFile::EditGuard* const guard = _projectFile.editGuard()) guard->changed(change.path);
    if(_group < 0) notify(change);
}

void ChangeManager::notify(const Change& change) {
    // The components of nearly every path fit in here.
    Containers::StringView inlineComponents[8];
    std::vector<Containers::StringView> allComponents;
    const std::size_t count = std::size_t(std::count(change.path.begin(), change.path.end(), '/')) + 1;
    if(count > std::size(inlineComponents)) allComponents.resize(count);
    Containers::StringView* const components = allComponents.empty() ? inlineComponents : allComponents.data();

    Containers::StringView rest = change.path;
    for(std::size_t i = 0; i != count; ++i) {
        const Containers::StringView slash = rest.findOr('/', rest.end());
        components[i] = rest.prefix(slash.begin());
        if(i + 1 != count) rest = rest.suffix(slash.end());
    }
    _isNotifying = true;
    for(std::size_t i = 0; i != count; ++i) {
        auto* const listeners = _listeners.find(components[i]);
        if(!listeners) continue;
        for(ChangeListener& listener: *listeners) listener.onChange(change, {components, count});
    }
    _isNotifying = false;
}

std::int32_t ChangeManager::MergeIndex::find(
    const std::vector<Change>& changes, std::int32_t last, std::int32_t group, Containers::StringView path) {
    if(_groupOfRun != group || _last != last) build(changes, last, group);
    std::int32_t found = -1;
    const auto candidates = _records.equal_range(hashOf(path));
    for(auto candidate = candidates.first; candidate != candidates.second; ++candidate)
        if(candidate->second > found && changes[std::size_t(candidate->second)].path == path) found = candidate->second;
    return found;
}

void ChangeManager::MergeIndex::appended(const std::vector<Change>& changes, std::int32_t last) {
    // The record continues the run, or nothing is known of the run that it starts
    // or continues.
    if(_groupOfRun != changes[std::size_t(last)].group || _last != last - 1) return clear();
    _last = last;
    add(changes, last);
}

void ChangeManager::MergeIndex::swapped(const std::vector<Change>& changes, std::int32_t a, std::int32_t b) {
    move(changes, a, -1);
    move(changes, b, a);
    // Found by its path, which is still that of record a.
    const auto candidates = _records.equal_range(hashOf(changes[std::size_t(a)].path));
    for(auto candidate = candidates.first; candidate != candidates.second; ++candidate)
        if(candidate->second == -1) candidate->second = b;
}

void ChangeManager::MergeIndex::build(const std::vector<Change>& changes, std::int32_t last, std::int32_t group) {
    // Emptying a table costs a step for each place that it has: a small group would pay for a large one before it.
    if(_records.bucket_count() > 256)
        std::unordered_multimap<std::size_t, std::int32_t>{}.swap(_records);
    else
        _records.clear();
    _groupOfRun = group;
    _last = last;
    for(std::int32_t i = last; i > 0 && changes[std::size_t(i)].group == group; --i) add(changes, i);
}

void ChangeManager::MergeIndex::add(const std::vector<Change>& changes, std::int32_t i) {
    // The first record of the log never takes a later change.
    if(i > 0) _records.emplace(hashOf(changes[std::size_t(i)].path), i);
}

void ChangeManager::MergeIndex::move(const std::vector<Change>& changes, std::int32_t from, std::int32_t to) {
    const auto candidates = _records.equal_range(hashOf(changes[std::size_t(from)].path));
    for(auto candidate = candidates.first; candidate != candidates.second; ++candidate)
        if(candidate->second == from) {
            candidate->second = to;
            return;
        }
}

} // namespace VantrelEngine
