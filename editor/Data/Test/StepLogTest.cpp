#include "Data/StepLog.h"

#include <algorithm>
#include <random>

#include "Data/StepWalk.h"
#include "Data/Test/SessionFixture.h"

namespace {

using namespace VantrelEngine;

using Ids = std::vector<std::string>;

class StepLogTest: public VantrelTest::SessionFixture {
protected:
    StepLogTest() {
        for(const char* const id: {"a", "b", "c"}) record(std::string{"/objects/"} + id, object());
        session.update();
        changes().clear();
        steps().update();
    }
    StepLog& steps() { return session.steps(); }
    void select(const Ids& ids) {
        session.data().selection().clear();
        for(const std::string& id: ids) session.data().selectObject(objectOf(id.data()), true);
    }
    Ids selected() {
        Ids ids;
        for(std::size_t i = 1; i < scene.size(); ++i)
            if(session.data().isSelected(scene.toId(i))) {
                const auto id = scene.objectIds.nameOf(scene.toId(i));
                ids.emplace_back(id.data(), id.size());
            }
        std::sort(ids.begin(), ids.end());
        return ids;
    }
    void frame() {
        session.update();
        steps().update();
    }
    void move(const std::string& id, int x, bool merge = false) {
        record("/objects/" + id + "/translation", '[' + std::to_string(x) + ", 0, 0]", merge);
    }
    void moveInGroup(const Ids& ids, int x, std::uint64_t key = 0, bool isUnderWay = false) {
        changes().beginGroup(key, isUnderWay);
        for(const std::string& id: ids) move(id, x, true);
        changes().commit();
    }
    std::vector<std::string> names() {
        std::vector<std::string> names;
        for(const Step& step: steps().steps()) names.push_back(step.name);
        return names;
    }
};

TEST_F(StepLogTest, AStepIsAGroupOrAChangeAlone) {
    move("a", 1);
    moveInGroup({"a", "b", "c"}, 2);
    moveInGroup({"a", "b"}, 3);
    move("c", 4);
    move("c", 5);
    frame();
    EXPECT_THAT(names(), testing::ElementsAre("Move N", "Move 3 objects", "Move 2 objects", "Move N", "Move N"));
    EXPECT_EQ(steps().steps()[1].first, 1);
    EXPECT_EQ(steps().steps()[1].end, 4);
    EXPECT_EQ(steps().position(), 5u);
    EXPECT_EQ(steps().takeFirstNew(), 0u);
    EXPECT_EQ(steps().takeFirstNew(), 5u);
}

TEST_F(StepLogTest, WhatWasUndoneStaysUntilItIsWrittenOver) {
    for(int i = 1; i != 4; ++i) moveInGroup({"a", "b"}, i);
    frame();
    steps().takeFirstNew();
    changes().undoLast();
    changes().undoLast();
    frame();
    EXPECT_EQ(steps().position(), 1u);
    EXPECT_EQ(steps().steps().size(), 3u);
    EXPECT_EQ(steps().takeFirstNew(), 3u) << "nothing is new";
    move("c", 7);
    frame();
    EXPECT_THAT(names(), testing::ElementsAre("Move 2 objects", "Move N"));
    EXPECT_EQ(steps().takeFirstNew(), 1u);
    EXPECT_EQ(steps().position(), 2u);
}

TEST_F(StepLogTest, AGestureThatGoesOnIsOneStep) {
    select({"a"});
    frame();
    moveInGroup({"a"}, 1, 9);
    frame();
    select({"b"});
    moveInGroup({"a"}, 2, 9, true);
    moveInGroup({"b"}, 3, 9, true);
    steps().takeFirstNew();
    frame();
    EXPECT_THAT(names(), testing::ElementsAre("Move 2 objects"));
    EXPECT_EQ(steps().steps()[0].selectedBefore, Ids{"a"}) << "of the beginning";
    EXPECT_EQ(steps().steps()[0].selectedAfter, Ids{"b"});
    EXPECT_EQ(steps().takeFirstNew(), 0u);
}

TEST_F(StepLogTest, NothingIsTakenOverOfATrialUntilItIsKept) {
    move("a", 1);
    frame();
    changes().undoLast();
    steps().takeFirstNew();
    changes().beginTrial(Trial::Preview);
    move("a", 2);
    frame();
    changes().dropTrial();
    frame();
    EXPECT_EQ(steps().takeFirstNew(), 1u) << "it never was";
    EXPECT_THAT(names(), testing::ElementsAre("Move N"));

    changes().beginTrial(Trial::Gesture);
    moveInGroup({"a"}, 3);
    frame();
    moveInGroup({"b", "c"}, 4);
    frame();
    EXPECT_EQ(steps().takeFirstNew(), 1u);
    changes().keepTrial();
    frame();
    EXPECT_THAT(names(), testing::ElementsAre("Move 3 objects"));
    EXPECT_EQ(steps().takeFirstNew(), 0u);
    EXPECT_EQ(steps().position(), 1u);
}

TEST_F(StepLogTest, AnotherProjectHasNoSteps) {
    move("a", 1);
    frame();
    steps().takeFirstNew();
    session.startNew();
    frame();
    EXPECT_TRUE(steps().steps().empty());
    EXPECT_EQ(steps().takeFirstNew(), 0u);
    EXPECT_EQ(steps().position(), 0u);
}

TEST_F(StepLogTest, TheSavedStateIsAPosition) {
    EXPECT_EQ(steps().savedPosition(), 0u);
    moveInGroup({"a", "b"}, 1, 5);
    move("a", 2);
    frame();
    changes().markSaved();
    EXPECT_EQ(steps().savedPosition(), 2u);
    changes().undoLast();
    EXPECT_EQ(steps().savedPosition(), 2u);
    move("c", 1);
    frame();
    EXPECT_FALSE(steps().savedPosition());
    changes().undoLast();
    changes().markSaved();
    EXPECT_EQ(steps().savedPosition(), 1u);
    moveInGroup({"c"}, 2, 5, true);
    frame();
    EXPECT_FALSE(steps().savedPosition()) << "in the middle of a step";
}

TEST_F(StepLogTest, TheSelectionComesBack) {
    select({"a", "b"});
    frame();
    remove("/objects/b");
    frame();
    EXPECT_EQ(selected(), Ids{"a"});
    select({"c"});
    frame();
    moveInGroup({"a", "c"}, 1);
    frame();
    select({});
    frame();

    goToStep(session, 1);
    EXPECT_EQ(selected(), Ids{"c"});
    select({});
    goToStep(session, 0);
    EXPECT_EQ(selected(), (Ids{"a", "b"})) << "b is there again";
    goToStep(session, 1);
    EXPECT_EQ(selected(), Ids{"a"});
    goToStep(session, 7);
    EXPECT_EQ(selected(), Ids{"c"});
    EXPECT_EQ(steps().position(), 2u);
    goToStep(session, 0);
    EXPECT_EQ(selected(), (Ids{"a", "b"})) << "as it was before the first one of many";
}

TEST_F(StepLogTest, WhereTheProjectIsAlreadyTheSelectionStays) {
    move("a", 1);
    frame();
    select({"b"});
    goToStep(session, 1);
    EXPECT_EQ(selected(), Ids{"b"});
}

TEST_F(StepLogTest, NamesOfOthersHoldForAsManySteps) {
    move("a", 1);
    move("b", 1);
    steps().update({"Import one.glb", "Import two.glb"});
    move("c", 1);
    move("c", 2);
    steps().update({"Import three.glb"});
    EXPECT_THAT(names(), testing::ElementsAre("Import one.glb", "Import two.glb", "Move N", "Move N"));
}

TEST_F(StepLogTest, SelectionsThatAreTheSameAreKeptOnce) {
    select({"a", "b"});
    frame();
    for(int i = 0; i != 3; ++i) {
        move("a", i);
        frame();
    }
    EXPECT_EQ(steps().steps()[0].selectedBefore.begin(), steps().steps()[2].selectedAfter.begin());
}

// The same beside a list of everything that was ever true of the project, a state a step.
class StepLogModelTest: public StepLogTest, public testing::WithParamInterface<unsigned> {
protected:
    struct Known {
        std::string document;
        Ids before, after;
    };
    std::mt19937 random{GetParam()};
    std::vector<Known> known;
    std::size_t position = 0;
    Ids noted;

    unsigned below(unsigned n) { return unsigned(random() % n); }
    Ids someIds() {
        Ids ids;
        for(const char* const id: {"a", "b", "c"})
            if(below(2)) ids.push_back(id);
        return ids;
    }
    // Nothing is deleted but what is added: the ids above stay.
    void edit() {
        const std::string path = "/objects/other";
        switch(below(4)) {
        case 0: return move("a", int(below(100)));
        case 1: return moveInGroup({"a", "b", "c"}, int(below(100)));
        case 2: return session.data().project().valueByPointer(path.data()) ? remove(path) : record(path, object());
        default:
            changes().beginTrial(below(2) ? Trial::Gesture : Trial::Preview);
            for(unsigned i = 1 + below(3); i != 0; --i) {
                moveInGroup({"b", "c"}, int(below(100)), 3, i % 2);
                frame();
            }
            changes().keepTrial();
        }
    }
    void dropTrial() {
        changes().beginTrial(Trial::Preview);
        move("c", int(below(100)));
        if(below(2)) moveInGroup({"a", "b"}, 1);
        frame();
        changes().dropTrial();
    }
    void addStep() {
        const Ids before = selected();
        edit();
        session.update();
        if(below(2)) select(someIds());
        frame();
        known.resize(position++);
        known.push_back({document(), before, selected()});
    }
    void expectKnown(const std::string& start) {
        ASSERT_EQ(steps().steps().size(), known.size());
        ASSERT_EQ(steps().position(), position);
        ASSERT_EQ(document(), position ? known[position - 1].document : start);
        for(std::size_t i = 0; i != known.size(); ++i) {
            const auto sorted = [](Ids ids) { return std::sort(ids.begin(), ids.end()), ids; };
            ASSERT_EQ(sorted(steps().steps()[i].selectedBefore), known[i].before) << i;
            ASSERT_EQ(sorted(steps().steps()[i].selectedAfter), known[i].after) << i;
        }
    }
};

TEST_P(StepLogModelTest, IsAsTheListSays) {
    const std::string start = document();
    for(int i = 0; i != 250; ++i) {
        const unsigned what = below(10);
        if(what < 5)
            addStep();
        else if(what < 6) {
            dropTrial();
            frame();
        } else if(what < 7) {
            select(someIds());
            frame();
        } else {
            const std::size_t to = what < 9 ? std::size_t(below(unsigned(known.size()) + 1))
                : position                  ? position - 1
                                            : 0;
            const Ids expected = to == position ? selected() : to < position ? known[to].before : known[to - 1].after;
            goToStep(session, to);
            frame();
            position = to;
            Ids there;
            for(const std::string& id: expected)
                if(objectOf(id.data())) there.push_back(id);
            ASSERT_EQ(selected(), there);
        }
        expectKnown(start);
        if(HasFatalFailure()) return;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, StepLogModelTest, testing::Range(0u, 4u));

} // namespace
