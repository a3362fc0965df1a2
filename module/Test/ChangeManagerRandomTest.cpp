#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <Corrade/Containers/StringStl.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <gtest/gtest.h>

#include "ChangeManager.h"

#include "Support/JsonText.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::jsonText;

// The order of the records after merges, found by a walk: what the manager's index has to agree with.
struct PlainLog {
    void record(const std::string& path, int group, bool merge) {
        if(merge)
            for(int i = int(records.size()) - 1; i > 0 && records[std::size_t(i)].second == group; --i)
                if(records[std::size_t(i)].first == path) {
                    std::swap(records[std::size_t(i)], records.back());
                    return;
                }
        records.emplace_back(path, group);
    }
    void undo() {
        if(records.empty()) return;
        const int group = std::max(records.back().second, 0);
        do records.pop_back();
        while(!records.empty() && records.back().second == group);
    }
    std::vector<std::pair<std::string, int>> records;
};

struct RandomSequence {
    explicit RandomSequence(unsigned seed): random{seed} {
        file.projectFile().Parse(R"({"objects":{}})");
        for(int i = 0; i != 30; ++i)
            file.createByPointer(("/objects/o" + std::to_string(i)).data())
                .CopyFrom(
                    JsonDocument{}.Parse(R"({"name":"n","parent":"","value":1,"list":[1,2,3]})"), file.allocator());
        manager.compileListeners();
    }

    std::string object() { return "/objects/o" + std::to_string(random() % 30); }

    // Value edits in a group always merge; structure edits (elements, whole objects) never do, and stand in groups of their own.
    void valueEdit(int group, bool merge) {
        const std::string path = object() + "/value";
        // Only of objects that are there: the members "name" and "parent" keep them from being pruned.
        if(!file.valueByPointer(path.substr(0, path.rfind('/')).data())) return;
        const JsonValue value{int(random() % 1000)};
        manager.recordChange(path.data(), random() % 5 ? &value : nullptr, merge);
        plain.record(path, group, merge);
    }
    void structureEdit(int group) {
        std::string path = object();
        const JsonValue* const there = file.valueByPointer(path.data());
        JsonDocument value;
        if(random() % 3 == 0) {
            value.Parse(R"({"name":"new","parent":"","value":2,"list":[9]})");
            manager.recordChange(path.data(), there ? nullptr : &value, false);
        } else if(there) {
            const JsonValue* const list = file.valueByPointer((path + "/list").data());
            const unsigned size = list ? list->Size() : 0;
            const bool insert = !size || random() % 2;
            path += "/list/" + std::to_string(random() % (size + insert));
            value.SetInt(int(random() % 1000));
            if(insert && !list) path = path.substr(0, path.rfind('/') + 1) + "0";
            // An insertion must not meet an element: what stands there would be replaced.
            if(insert && file.valueByPointer(path.data()))
                path = path.substr(0, path.rfind('/') + 1) + std::to_string(size);
            manager.recordChange(path.data(), insert ? &value : nullptr, false);
        } else {
            return;
        }
        plain.record(path, group, false);
    }

    void group() {
        manager.beginGroup(random() % 3, random() % 2);
        const int number = manager.group();
        const bool structure = number % 2;
        for(unsigned i = random() % 12; i; --i) structure ? structureEdit(number) : valueEdit(number, true);
        manager.commit();
    }

    void step() {
        switch(random() % 8) {
        case 0: valueEdit(-1, false); break;
        case 1: structureEdit(-1); break;
        case 2:
            manager.undoLast();
            plain.undo();
            break;
        case 3: redo(); break;
        default: group();
        }
    }

    // Also checks that what was undone comes back.
    void redo() {
        if(!manager.canUndo()) return;
        const std::string after = jsonText(file.projectFile());
        const std::int32_t last = manager.lastChange();
        manager.undoLast();
        manager.redoLast();
        JsonDocument expected;
        expected.Parse(after.data());
        // Member order aside.
        ASSERT_TRUE(static_cast<const JsonValue&>(file.projectFile()) == static_cast<const JsonValue&>(expected));
        ASSERT_EQ(manager.lastChange(), last);
    }

    std::mt19937 random;
    ProjectFile file;
    ChangeManager manager{file};
    PlainLog plain;
};

TEST(ChangeManagerRandomTest, mergesAsAWalkWouldAndUndoesToTheStart) {
    for(unsigned seed = 0; seed != 40; ++seed) {
        SCOPED_TRACE(seed);
        RandomSequence sequence{seed};
        JsonDocument start;
        start.CopyFrom(sequence.file.projectFile(), start.GetAllocator());
        for(int step = 0; step != 300; ++step) {
            ASSERT_NO_FATAL_FAILURE(sequence.step()) << step;
            const auto changes = sequence.manager.changes();
            ASSERT_EQ(std::size_t(sequence.manager.lastChange() + 1), sequence.plain.records.size()) << step;
            for(std::size_t i = 0; i != sequence.plain.records.size(); ++i) {
                ASSERT_EQ(std::string(changes[i].path), sequence.plain.records[i].first) << step << " " << i;
                ASSERT_EQ(changes[i].group, sequence.plain.records[i].second) << step << " " << i;
            }
        }
        while(sequence.manager.canUndo()) sequence.manager.undoLast();
        EXPECT_TRUE(static_cast<const JsonValue&>(sequence.file.projectFile()) == static_cast<const JsonValue&>(start));
    }
}

}
