#include "Vantrel/EditorUtilities/Clipboard.h"

#include <limits>
#include <random>

#include <Vantrel/EngineData/Types.h>
#include <VantrelHost/ProjectStore.h>

#include "SelectionFixture.h"
#include "Utilities/ObjectClip.h"

namespace VantrelEngine {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using VantrelTest::Names;
using ClipboardTest = VantrelTest::SelectionFixture;

TEST_F(ClipboardTest, ASingleCopyLeavesWhatIsBelow) {
    select({"lamp"});
    EXPECT_THAT(duplicated(), ElementsAre("lamp-2"));
    EXPECT_EQ(nameOf("lamp-2"), "\"Lamp 2\"");
    EXPECT_EQ(at("/objects/lamp-2/translation"), "[1,2,3]");
    EXPECT_EQ(objectCount(), 6u);
}

TEST_F(ClipboardTest, SelectedOnesKeepTheirPlacesBelowEachOther) {
    // What is between them is not selected: the wire stays where it is.
    select({"wire", "lamp", "shade"});
    EXPECT_THAT(duplicated(), ElementsAre("lamp-2", "wire-2", "shade-2"));
    EXPECT_EQ(parentIn("lamp-2"), "\"\"");
    EXPECT_EQ(parentIn("wire-2"), "\"bulb\"");
    EXPECT_EQ(parentIn("shade-2"), "\"lamp-2\"");
    // Its siblings are others; a name that stands alone stays.
    EXPECT_EQ(nameOf("shade-2"), "\"Shade\"");
    EXPECT_EQ(nameOf("wire-2"), "\"Wire 2\"");
}

TEST_F(ClipboardTest, ATreeIsCopiedOnce) {
    select({"lamp", "wire"});
    EXPECT_THAT(duplicatedTrees(), ElementsAre("lamp-2", "bulb-2", "wire-2", "shade-2"));
    EXPECT_EQ(parentIn("bulb-2"), "\"lamp-2\"");
    EXPECT_EQ(parentIn("wire-2"), "\"bulb-2\"");
    EXPECT_EQ(nameOf("wire-2"), "\"Wire\"");
    EXPECT_EQ(objectCount(), 9u);
}

TEST_F(ClipboardTest, TextSaysTheSame) {
    select({"lamp", "wire"});
    const std::string text = copiedTrees();
    EXPECT_THAT(text, HasSubstr("\"vantrel-objects\""));
    // Whatever is selected, and from any project.
    select({});
    EXPECT_THAT(pasted(text), ElementsAre("lamp-2", "bulb-2", "wire-2", "shade-2"));
    session.startNew();
    EXPECT_THAT(pasted(text), ElementsAre("lamp", "bulb", "wire", "shade"));
    EXPECT_EQ(nameOf("lamp"), "\"Lamp\"");
    EXPECT_EQ(parentIn("wire"), "\"bulb\"");
    session.update();
    EXPECT_EQ(parentOf("wire"), "bulb");
}

TEST_F(ClipboardTest, WithoutItsParentACopyStaysWhereThatIs) {
    select({"wire"});
    const std::string text = copied();
    pasted(text);
    EXPECT_EQ(parentIn("wire-2"), "\"bulb\"");
    remove("/objects/bulb");
    pasted(text);
    EXPECT_EQ(parentIn("wire-3"), "\"\"");
}

TEST_F(ClipboardTest, PastingBelowTakesTheFirstSelectedOne) {
    select({"bulb", "desk"});
    const std::string text = copiedTrees();
    select({"desk", "shade"});
    ASSERT_LT(objectOf("shade"), objectOf("desk"));
    EXPECT_THAT(pastedBelow(text), ElementsAre("bulb-2", "wire-2", "desk-2"));
    EXPECT_EQ(parentIn("bulb-2"), "\"shade\"");
    EXPECT_EQ(parentIn("wire-2"), "\"bulb-2\"");
    EXPECT_EQ(parentIn("desk-2"), "\"shade\"");
    EXPECT_EQ(nameOf("desk-2"), "\"Desk\"");
    EXPECT_EQ(at("/objects/desk-2/translation"), "[1,2,3]");
    // An object below itself is a copy of it.
    select({"bulb"});
    EXPECT_THAT(pastedBelow(text), ElementsAre("bulb-3", "wire-3", "desk-3"));
    EXPECT_EQ(parentIn("bulb-3"), "\"bulb\"");
}

TEST_F(ClipboardTest, PastingBelowNothingIsRefused) {
    select({"desk"});
    const std::string text = copied(), before = document();
    select({});
    EXPECT_EQ(errorOf([&] { EXPECT_THAT(pastedBelow(text), IsEmpty()); }),
        "Cannot paste: no object is selected to paste below\n");
    EXPECT_EQ(document(), before);
}

TEST_F(ClipboardTest, NothingSelectedIsNoText) {
    select({});
    EXPECT_EQ(copied(), "");
    EXPECT_EQ(copiedTrees(), "");
    const std::size_t changes = session.changes().changes().size();
    EXPECT_EQ(errorOf([&] { EXPECT_THAT(duplicated(), IsEmpty()); }), "");
    EXPECT_EQ(session.changes().changes().size(), changes);
}

TEST_F(ClipboardTest, NamesCountOn) {
    add("a", "Tree");
    add("b", "Tree 7");
    add("c", "Tree 07");
    add("d", "Tree 2", "desk");
    add("e", "9");
    add("f", "");
    add("g", "Tree 12345678");
    select({"a"});
    EXPECT_EQ(nameOf(duplicated().at(0)), "\"Tree 8\"");
    // One more in the same step, and one that nobody has.
    select({"a", "b", "d"});
    Names made = duplicated();
    EXPECT_EQ(nameOf(made.at(0)), "\"Tree 3\"");
    EXPECT_EQ(nameOf(made.at(1)), "\"Tree 9\"");
    EXPECT_EQ(nameOf(made.at(2)), "\"Tree 10\"");
    select({"c", "e", "f", "g"});
    made = duplicated();
    EXPECT_EQ(nameOf(made.at(0)), "\"Tree 07 2\"");
    EXPECT_EQ(nameOf(made.at(1)), "\"9 2\"");
    EXPECT_EQ(nameOf(made.at(2)), "\"\"");
    EXPECT_EQ(nameOf(made.at(3)), "\"Tree 12345678 2\"");
}

TEST_F(ClipboardTest, IdsAreOfTheProjectsKind) {
    session.data().objectIdMode = 1;
    select({"lamp", "desk"});
    const Names made = duplicatedTrees();
    ASSERT_EQ(made.size(), 5u);
    for(const std::string& id: made) {
        ASSERT_EQ(id.size(), 36u);
        EXPECT_EQ(id[14], '4');
    }
    EXPECT_EQ(parentIn(made[1]), '"' + made[0] + '"');
}

TEST_F(ClipboardTest, SkinsAndAnimationsOfCopiesFollowThem) {
    record("/skins/body", "{'name': 'Body', 'joints': ['bulb', 'wire', 'desk']}");
    record("/skins/other", "{'name': 'Other', 'joints': ['desk']}");
    record("/animations/walk", "{'name': 'Walk', 'file': 'walk', 'targets': ['wire', 'gone']}");
    add("figure", "Figure", "lamp",
        ",'skin': 'body', 'components': [{'type': 'mesh', 'mesh': {'mesh': 'm', 'material': 'p', 'skin': 'body'}},"
        "{'type': 'mesh', 'mesh': {'skin': 'other'}}, {'type': 'animation', 'animation': {'animation': 'walk'}}]");
    select({"lamp"});
    const std::string text = copiedTrees();
    EXPECT_THAT(text, Not(HasSubstr("\"Other\"")));
    printed([&] { EXPECT_EQ(pasted(text).size(), 5u); });
    EXPECT_EQ(at("/skins/body-2"), "{\"name\":\"Body 2\",\"joints\":[\"bulb-2\",\"wire-2\",\"desk\"]}");
    EXPECT_EQ(at("/animations/walk-2"), "{\"name\":\"Walk 2\",\"file\":\"walk\",\"targets\":[\"wire-2\",\"gone\"]}");
    EXPECT_EQ(at("/objects/figure-2/skin"), "\"body-2\"");
    EXPECT_EQ(at("/objects/figure-2/components/0/mesh/skin"), "\"body-2\"");
    EXPECT_EQ(at("/objects/figure-2/components/0/mesh/mesh"), "\"m\"");
    EXPECT_EQ(at("/objects/figure-2/components/1/mesh/skin"), "\"other\"");
    EXPECT_EQ(at("/objects/figure-2/components/2/animation/animation"), "\"walk-2\"");
    // The originals are as they were.
    EXPECT_EQ(at("/skins/body/joints/0"), "\"bulb\"");
    EXPECT_EQ(at("/objects/figure/skin"), "\"body\"");
    changes().undoLast();
    EXPECT_EQ(at("/skins/body-2"), "nothing");
    // Without a joint among them they share it.
    select({"figure"});
    duplicated();
    EXPECT_EQ(at("/objects/figure-2/skin"), "\"body\"");
}

TEST_F(ClipboardTest, WhatIsMissingIsToldOnceAndStays) {
    const std::string mesh = ",'components': [{'type': 'mesh', 'mesh': {'mesh': 'cube', 'material': 'paint'}}]";
    record("/materials/paint", "{'name': 'Paint'}");
    add("a", "A", "", mesh);
    add("b", "B", "", mesh);
    select({"a", "b"});
    const std::string text = copied();
    EXPECT_EQ(printed([&] { pasted(text); }), "What was pasted names meshes/cube, which the project does not have\n");
    EXPECT_EQ(at("/objects/b-2/components/0/mesh/mesh"), "\"cube\"");
}

TEST_F(ClipboardTest, WhatIsLeftOutIsToldForAPage) {
    std::string many = "{\"type\":\"vantrel-objects\",\"version\":1,\"objects\":{";
    for(int i = 0; i != 300; ++i)
        many += (i ? ",\"" : "\"") + std::to_string(i) + "\":{\"skin\":\"s" + std::to_string(i) + "\"}";
    const std::string lines = printed([&] { EXPECT_EQ(pasted(many + "}}").size(), 300u); });
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 101);
    EXPECT_THAT(lines, HasSubstr("What was pasted names 200 more, which is of another project and left out\n"));
}

TEST_F(ClipboardTest, EachIsOneStep) {
    const std::string before = document();
    select({"lamp", "desk"});
    const std::string text = copiedTrees();
    duplicatedTrees();
    const std::string duplicated = document();
    pasted(text);
    const std::string pasted = document();
    pastedBelow(text);
    const std::string below = document();
    for(const std::string& state: {pasted, duplicated, before}) {
        changes().undoLast();
        EXPECT_EQ(document(), state);
    }
    for(const std::string& state: {duplicated, pasted, below}) {
        changes().redoLast();
        EXPECT_EQ(document(), state);
    }
}

TEST_F(ClipboardTest, NothingIsDoneWhileSomethingElseIs) {
    select({"lamp"});
    const std::string text = copied(), before = document();
    changes().beginGroup();
    EXPECT_THAT(duplicated(), IsEmpty());
    changes().commit();
    for(const Trial trial: {Trial::Gesture, Trial::Preview}) {
        changes().beginTrial(trial);
        EXPECT_THAT(duplicated(), IsEmpty());
        EXPECT_THAT(duplicatedTrees(), IsEmpty());
        EXPECT_THAT(pasted(text), IsEmpty());
        EXPECT_THAT(pastedBelow(text), IsEmpty());
        deleteSelectedObjects(editor);
        EXPECT_EQ(document(), before);
        // Copying changes nothing.
        EXPECT_EQ(copied(), text);
        changes().dropTrial();
    }
}

TEST_F(ClipboardTest, WhatWasUndoneJustNowIsNotCopied) {
    add("new", "New");
    select({"new", "desk"});
    // No frame is in between: the scene still has it.
    changes().undoLast();
    EXPECT_THAT(copied(), Not(HasSubstr("New")));
    EXPECT_THAT(duplicated(), ElementsAre("desk-2"));
}

TEST_F(ClipboardTest, WhatCameJustNowIsCopiedToo) {
    select({"lamp"});
    // No frame is in between: the scene does not have it yet.
    add("new", "New", "lamp");
    EXPECT_THAT(duplicatedTrees(), ElementsAre("lamp-2", "bulb-2", "wire-2", "shade-2", "new-2"));
    add("other", "Lamp 3");
    select({"lamp"});
    add("another", "Lamp 4");
    EXPECT_EQ(nameOf(duplicated().at(0)), "\"Lamp 5\"");
}

std::string clip(const std::string& objects) {
    std::string text = "{'type': 'vantrel-objects', 'version': 1, 'objects': " + objects + "}";
    for(char& c: text)
        if(c == '\'') c = '"';
    return text;
}

struct Refused {
    std::string text;
    const char* reason;
};

TEST_F(ClipboardTest, OtherTextsAreRefusedWithALine) {
    constexpr const char* nothing = "it has no objects of a project";
    std::string deep = clip("{'a': {'components': ");
    deep = deep.substr(0, deep.size() - 1) + std::string(100000, '[');
    const Refused texts[]{{"", "it is empty"}, {"hello", nothing}, {"[1]", nothing}, {"{}", nothing},
        {"{\"objects\": {\"a\": {}}}", nothing}, {clip("{}"), nothing}, {"{\"type\": \"vantrel-objects\"", nothing},
        {"{\"type\": \"vantrel-objects\", \"version\": 1}", nothing},
        {"{\"type\": \"vantrel-objects\", \"version\": 2, \"objects\": {}}", "it is of another version"},
        {"{\"type\": \"vantrel-objects\", \"version\": \"1\", \"objects\": {}}", "it is of another version"},
        {deep, nothing}, {std::string(1 << 20, ' '), nothing}, {clip("{'a': {'name': '\xff'}}"), nothing},
        {clip("[]"), "objects: not an object"}, {clip("{'a': 1}"), "objects/a: not an object"},
        {clip("{'': {}}"), "objects: an object has an empty id"},
        {clip("{'a': {}, 'a': {}}"), "objects/a: the key stands"},
        {clip("{'a': {'parent': 'b'}, 'b': {'parent': 'a'}}"), "objects/a/parent: "},
        {clip("{'a': {'parent': 'a'}}"), "objects/a/parent: "},
        {clip("{'a': {'translation': [1e300, 0, 0]}}"), "objects/a: translation/0: the number is too large"},
        {clip("{'a': {'name': 7}}"), "objects/a: name is a text"},
        {clip("{'a': {}}, 'skins': {'s': 1}"), "skins/s: not a resource"},
        {clip("{'a': {}}, 'skins': []"), "skins: not an object"}};
    const std::string before = document();
    const std::size_t logged = changes().changes().size();
    for(const Refused& refused: texts) {
        const std::string line = errorOf([&] { EXPECT_THAT(pasted(refused.text), IsEmpty()); });
        EXPECT_THAT(line, HasSubstr(refused.reason)) << refused.text.substr(0, 200);
        EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1) << line;
        EXPECT_EQ(line.substr(0, 12), "Cannot paste") << line;
        EXPECT_EQ(document(), before);
        EXPECT_EQ(changes().changes().size(), logged);
    }
}

TEST_F(ClipboardTest, AProjectThatIsFullTakesNoPartOfIt) {
    session.startNew();
    JsonDocument all{rapidjson::kObjectType};
    JsonAllocator& allocator = session.data().project().allocator();
    for(std::size_t i = 0; i != MaxObjects - 3; ++i) {
        const std::string id = "o" + std::to_string(i);
        all.AddMember(JsonValue{id.data(), rapidjson::SizeType(id.size()), allocator},
            JsonValue{rapidjson::kObjectType}, allocator);
    }
    changes().recordChange("/objects", &all, false);
    printed([&] { session.update(); });
    const std::string four = clip("{'a': {}, 'b': {}, 'c': {}, 'd': {}}");
    const std::size_t logged = changes().changes().size();
    EXPECT_EQ(errorOf([&] { EXPECT_THAT(pasted(four), IsEmpty()); }),
        "Cannot paste: 4 are too many, the project has room for 3 more objects\n");
    EXPECT_EQ(changes().changes().size(), logged);
    EXPECT_EQ(objectCount(), MaxObjects - 3);
    printed([&] { EXPECT_EQ(pasted(clip("{'a': {}, 'b': {}, 'c': {}}")).size(), 3u); });
    EXPECT_EQ(objectCount(), std::size_t(MaxObjects));
    printed([&] { select({"o1"}); });
    EXPECT_EQ(errorOf([&] { EXPECT_THAT(duplicated(), IsEmpty()); }),
        "Cannot duplicate: 1 are too many, the project has room for 0 more objects\n");
}

// A text with some bytes changed, cut out or put in at random.
std::string mutated(std::string text, std::mt19937& random) {
    constexpr char Bytes[] = "{}[]\",:0-9eE.\\/ \x01\xff"
                             "antlrue";
    const auto below = [&](std::size_t end) { return std::size_t(random()) % std::max<std::size_t>(end, 1); };
    for(std::size_t i = 1 + below(4); i != 0; --i) {
        const std::size_t place = below(text.size());
        switch(below(4)) {
        case 0: text.insert(place, 1, Bytes[below(sizeof Bytes - 1)]); break;
        case 1: text.erase(place, 1 + below(8)); break;
        case 2: text[place] = Bytes[below(sizeof Bytes - 1)]; break;
        // A piece from elsewhere: a key twice, an id for another one.
        default: text.insert(place, text.substr(below(text.size()), 1 + below(30)));
        }
    }
    return text;
}

TEST_F(ClipboardTest, NoTextBringsInWhatCannotBeSaved) {
    record("/skins/body", "{'name': 'Body', 'joints': ['bulb', 'wire']}");
    add("figure", "Figure", "bulb",
        ",'skin': 'body', 'components': [{'type': 'mesh', 'mesh': {'mesh': 'm', 'material': 'p', 'skin': 'body'}}]");
    select({"bulb"});
    const std::string own = copiedTrees();
    std::string other = own;
    other.replace(other.find("\"project\""), 3, "\"no");
    std::mt19937 random{7};
    std::size_t taken = 0, refused = 0;
    printed([&] {
        for(int i = 0; i != 20000; ++i) {
            const std::string before = document();
            const std::string hostile = mutated(i / 2 % 2 ? own : other, random);
            Names made;
            const std::string line = errorOf([&] { made = i % 2 ? pasted(hostile) : pastedBelow(hostile); });
            EXPECT_NE(line.empty(), made.empty()) << hostile;
            EXPECT_LE(std::count(line.begin(), line.end(), '\n'), 1);
            ++(made.empty() ? refused : taken);
            // Saved and opened again it is the same, with nothing to be repaired.
            if(!made.empty() && taken % 200 == 1) {
                ASSERT_EQ(session.save(folder.path("fuzz.json"), ProjectStore::Repaired::Overwrite), "");
                const ReadProject read = readProject(folder.path("fuzz.json"));
                EXPECT_EQ(read.opened.error, "");
                EXPECT_FALSE(isRepaired(read.opened.problems)) << hostile;
            }
            if(!made.empty()) {
                session.update();
                changes().undoLast();
                session.update();
            }
            ASSERT_EQ(document(), before) << hostile;
        }
    });
    EXPECT_GT(taken, 200u);
    EXPECT_GT(refused, 1000u);
}

} // namespace

} // namespace VantrelEngine
