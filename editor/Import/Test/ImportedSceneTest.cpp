#include "Import/ImportedScene.h"

#include <gmock/gmock.h>

#include "ImportFixture.h"

namespace VantrelEngine {

namespace {

using testing::HasSubstr;
using testing::StartsWith;
using ImportedSceneTest = VantrelTest::ImportFixture;

struct Bad {
    const char* document;
    const char* error;
};

// Each is refused as a whole: the project, its log and its folder are as they were.
TEST_F(ImportedSceneTest, WhatTheConverterMadeIsNotTrusted) {
    const std::string deep =
        "{\"format\": 1, \"materials\": {\"m\": {\"name\": \"m\", \"x\": " + std::string(600, '[') +
        std::string(600, ']') + "}}}";
    const Bad cases[]{{"", "the document is empty"}, {"nonsense", "line 1, column "}, {"[]", "a project is an object"},
        {R"({"objects": {}})", "its format is another one"}, {R"({"format": 2})", "its format is another one"},
        {R"({"format": 1, "meshes": []})", "meshes: not an object"},
        {R"({"format": 1, "meshes": {"": {"name": "n"}}})", "meshes: an id is empty"},
        {R"({"format": 1, "meshes": {"m": 3}})", "meshes/m: not an object"},
        {R"({"format": 1, "meshes": {"m": {}}})", "meshes/m: there is no name"},
        {R"({"format": 1, "meshes": {"m": {"name": "n"}, "m": {"name": "n"}}})", "the key stands here once more"},
        {R"({"format": 1, "objects": {"a": {"name": "a", "parent": "b"}}})", "there is no object \"b\""},
        {R"({"format": 1, "objects": {"a": {"name": "a", "parent": "b"}, "b": {"name": "b", "parent": "a"}}})",
            "own ancestor"},
        {R"({"format": 1, "objects": {"a": {"name": "a", "translation": [0, 1e300, 0]}}})", "objects/a/translation"},
        {R"({"format": 1, "objects": {"a": {"name": "a", "components": [{"type": "script"}]}}})",
            "objects/a: there is no component type \"script\""},
        {R"({"format": 1, "objects": {"a": {"name": "a", "components": [
            {"type": "mesh", "mesh": {"mesh": "x"}}]}}})",
            "objects/a: there is no \"x\" among the meshes"},
        {R"({"format": 1, "textures": {"t": {"name": "t", "image": "x"}}})", "there is no \"x\" among the images"},
        {R"({"format": 1, "skins": {"s": {"name": "s", "joints": ["x"]}}})", "there is no \"x\" among the objects"},
        {R"({"format": 1, "environment": "x"})", "environment: there is no such image"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "files/../outside.bmp"}}})", "named in a wrong way"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "outside.bmp"}}})", "named in a wrong way"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "/etc/passwd"}}})", "named in a wrong way"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "files/.hidden"}}})", "named in a wrong way"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "files/a.bmp", "asset": "default"}}})",
            "named in a wrong way"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": 7}}})", "named in a wrong way"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "files/missing.bmp"}}})", "there is no such file"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "files/link.bmp"}}})", "not a regular file"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "files/pipe.bmp"}}})", "not a regular file"},
        {R"({"format": 1, "images": {"i": {"name": "i", "file": "files/folder.bmp"}}})", "not a regular file"},
        {R"({"format": 1, "shaders": {"s": {"name": "s", "vertex": "files/a.bmp", "asset": "x"}}})", "unknown"},
        {R"({"format": 1, "materials": {"m": {"name": "m", "x": 1e300}}})", "too large for a float"},
        {R"({"format": 1, "images": {"ok": {"name": "ok", "file": "files/a.bmp"}},
            "materials": {"m": {"name": "m", "x": {"y": 1, "y": 2}}}})",
            "the key stands here once more"},
        {deep.data(), "more than 512"}};
    const std::string before = document();
    for(const Bad& bad: cases) {
        SCOPED_TRACE(bad.document);
        std::string error;
        const std::string line =
            printed<Corrade::Utility::Error>([&] { error = import(std::string{"document "} + bad.document).error; });
        EXPECT_THAT(error, HasSubstr(bad.error));
        EXPECT_NE(error, "");
        EXPECT_EQ(line, "a.glb: " + error + "\n");
        EXPECT_EQ(document(), before);
    }
    EXPECT_FALSE(changes().canUndo());
    EXPECT_FALSE(std::filesystem::exists(folder.path("imported")));
}

TEST_F(ImportedSceneTest, SectionsThatAreMissingAreEmpty) {
    EXPECT_EQ(import(R"(document {"format": 1})").error, "");
    EXPECT_FALSE(changes().canUndo());
}

} // namespace

} // namespace VantrelEngine
