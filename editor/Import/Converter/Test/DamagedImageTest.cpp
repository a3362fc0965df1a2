#include <gmock/gmock.h>
#include <sys/wait.h>

#include "Data/Resources/ImageFile.h"
#include "Data/Resources/Test/GlbBuilder.h"
#include "Data/Resources/Test/ImageBuilder.h"
#include "Import/Converter/Test/ConverterFixture.h"
#include "Import/Converter/Test/GltfText.h"

namespace VantrelImport::Test {

namespace {

using namespace testing;

const std::vector<unsigned char> Pixels{
    255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120};

std::string hdr() { return VantrelEngine::Test::hdrFile(3, 2, std::vector<float>(24, 0.5f)); }

class DamagedImageTest: public ConverterTest {
protected:
    void expectRefused(const std::string& name, const std::string& bytes) {
        const ImportResult result = import(name, bytes);
        EXPECT_TRUE(WIFEXITED(result.status) && WEXITSTATUS(result.status) == 1) << name << ' ' << result.text();
        EXPECT_NE(result.error(), "") << name << ' ' << bytes.size() << " bytes\n" << result.text();
        EXPECT_TRUE(result.json.IsNull());
    }
    void expectNoCutOne(const std::string& name, const std::string& bytes, std::size_t step) {
        EXPECT_TRUE(import(name, bytes).isDone()) << name;
        for(std::size_t size = 0; size < bytes.size(); size += step) expectRefused(name, bytes.substr(0, size));
        expectRefused(name, bytes.substr(0, bytes.size() - 1));
    }
};

TEST_F(DamagedImageTest, CutOnesAreRefused) {
    // The last chunk of a PNG holds nothing but says that all is there; of its twelve bytes the first eight count.
    const std::string png = VantrelEngine::Test::pngFile(3, 2, Pixels);
    expectNoCutOne("a.png", png.substr(0, png.size() - 4), 3);
    expectNoCutOne("a.tga", VantrelEngine::Test::tgaFile(3, 2, Pixels), 3);
    expectNoCutOne("a.bmp", VantrelEngine::Test::bmpFile(3, 2, Pixels), 5);
    expectNoCutOne("a.hdr", hdr(), 5);
}

// Where the data of a JPEG file end too early, the rest is grey, as everywhere.
TEST_F(DamagedImageTest, ACutJpegIsRefusedOrCanBeDecoded) {
    const std::string bytes = VantrelEngine::Test::jpegFile(3, 2, Pixels);
    for(std::size_t size = 0; size < bytes.size(); size += 20) {
        const ImportResult result = import("a.jpg", bytes.substr(0, size));
        if(!result.isDone()) {
            EXPECT_NE(result.error(), "") << result.text();
            continue;
        }
        std::string reason;
        const std::string file = result.file(result.only("images"));
        EXPECT_TRUE(VantrelEngine::readImage(VantrelEngine::Test::view(file), reason)) << size << ": " << reason;
    }
}

TEST_F(DamagedImageTest, DataThatCannotBeUnpackedAreRefused) {
    std::string png = VantrelEngine::Test::pngFile(3, 2, Pixels);
    png[png.find("IDAT") + 4] ^= '\x10';
    expectRefused("a.png", png);
}

TEST_F(DamagedImageTest, AMaterialStaysWithoutIt) {
    write("cut.png", pngPixel().substr(0, 40));
    write("good.png", pngPixel());
    const ImportResult result = import("a.gltf",
        triangleGltf(R"(,"materials":[{"emissiveTexture":{"index":1},"pbrMetallicRoughness":{"baseColorTexture":)"
                     R"({"index":0}}}],"textures":[{"source":0},{"source":1}],)"
                     R"("images":[{"uri":"cut.png"},{"uri":"good.png"}])"));
    ASSERT_TRUE(result.isDone()) << result.text();
    EXPECT_TRUE(result.hasWarning("image \"cut\" is left out: ")) << result.text();
    EXPECT_EQ(result.only("images")["name"].GetString(), std::string{"good"});
    EXPECT_EQ(result.only("materials")["Lit"]["baseColorTexture"].GetString(), std::string{});
    EXPECT_NE(result.only("materials")["Lit"]["emissiveTexture"].GetString(), std::string{});
}

} // namespace

} // namespace VantrelImport::Test
