#include <assimp/Importer.hpp>
#include <gtest/gtest.h>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/LibraryFormats.h"
#include "Import/Converter/Sha256.h"
#include "Import/Converter/SpecularGlossiness.h"
#include "Import/Converter/Text.h"

namespace VantrelImport::Test {

namespace {

std::string hash(const std::string& text) { return sha256(text.data(), text.size()); }

// The examples of FIPS 180, and one at each length around a block's end.
TEST(Sha256Test, Examples) {
    EXPECT_EQ(hash(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(hash("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(hash("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
        "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
    EXPECT_EQ(hash(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
    EXPECT_EQ(hash(std::string(55, 'a')), "9f4390f8d30c2dd92ec9f095b65e2b9ae9b0a925a5258e241c9f1e910f734318");
    EXPECT_EQ(hash(std::string(64, 'a')), "ffe054fe7ae0cb6dc65c3af9b61d5209f439851db43d0ba5997337df154668eb");
}

TEST(TextTest, OneLineOfUtf8) {
    EXPECT_EQ(
        cleanText("plain \xc3\xa4 \xe2\x82\xac \xf0\x9f\x8d\x8e"), "plain \xc3\xa4 \xe2\x82\xac \xf0\x9f\x8d\x8e");
    EXPECT_EQ(cleanText("a\nb\tc\x7f\xc2\x85"
                        "d\xe2\x80\xa8"
                        "e"),
        "a b c  d e");
    // Alone, overlong, a surrogate, too large, cut off.
    EXPECT_EQ(cleanText("\x80|\xc0\x80|\xed\xa0\x80|\xf4\x90\x80\x80|\xe2\x82"), "?|??|???|????|??");
    EXPECT_EQ(cleanText(std::string{"\0x", 2}), " x");
    EXPECT_EQ(cleanText("abcdef", 3), "abc...");
    EXPECT_EQ(nameOr(" \n", "Other"), "Other");
}

TEST(TextTest, NamesOfFiles) {
    EXPECT_EQ(extensionOf("a.b.GLB"), "glb");
    EXPECT_EQ(extensionOf("none"), "");
    EXPECT_EQ(stemOf("a.b.GLB"), "a.b");
    EXPECT_EQ(stemOf(".hidden"), ".hidden");
    EXPECT_EQ(baseName("C:\\x\\y.png"), "y.png");
    EXPECT_EQ(baseName("a/b"), "b");
    EXPECT_EQ(folderOf("a/b/c"), "a/b/");
    EXPECT_EQ(folderOf("c"), ".");
}

TEST(UriTest, PercentSigns) {
    EXPECT_EQ(percentDecoded("a%20b%2Fc"), "a b/c");
    EXPECT_EQ(percentDecoded("100%"), "100%");
    EXPECT_EQ(percentDecoded("%4"), "%4");
    EXPECT_EQ(percentDecoded("%zz%41"), "%zzA");
}

TEST(UriTest, Data) {
    const auto text = [](const char* uri) {
        const auto bytes = dataOfUri(uri);
        return bytes ? std::string(bytes->begin(), bytes->end()) : "none";
    };
    EXPECT_EQ(text("data:text/plain;base64,aGVsbG8="), "hello");
    EXPECT_EQ(text("data:;base64,aGVsbG8"), "hello");
    EXPECT_EQ(text("data:;base64,"), "");
    for(const char* const uri:
        {"data:;base64,a", "data:;base64,a b=", "data:text/plain,hello", "data:base64", "file:a", "data:,"})
        EXPECT_EQ(text(uri), "none") << uri;
}

TEST(LibraryFormatsTest, OneReaderAFormat) {
    for(const std::string extension: {"obj", "fbx", "ply", "stl", "dae"}) {
        EXPECT_TRUE(isLibraryExtension(extension));
        Assimp::Importer importer;
        keepOneReader(importer, extension);
        EXPECT_EQ(importer.GetImporterCount(), 1u) << extension;
        EXPECT_TRUE(importer.IsExtensionSupported(extension)) << extension;
    }
    for(const char* const extension: {"3mf", "zae", "gltf", "blend", "x", "", "OBJ"})
        EXPECT_FALSE(isLibraryExtension(extension)) << extension;
}

TEST(RoughnessTest, OfExponents) {
    EXPECT_EQ(roughnessOfExponent(0.0f), 1.0f);
    EXPECT_EQ(roughnessOfExponent(-5.0f), 1.0f);
    EXPECT_NEAR(roughnessOfExponent(30.0f), 0.5f, 1e-6f);
    EXPECT_LT(roughnessOfExponent(1000.0f), 0.22f);
}

} // namespace

} // namespace VantrelImport::Test
