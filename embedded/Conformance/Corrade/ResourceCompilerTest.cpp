#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <sys/wait.h>

#include "Support/TestFolder.h"

namespace {

class ResourceCompiler: public testing::Test {
protected:
    void SetUp() override { put("file.txt", "contents"); }

    std::string path(const std::string& name) const { return _directory.path(name); }

    void put(const std::string& name, const std::string& contents) const { _directory.write(name, contents); }
    std::string get(const std::string& name) const { return VantrelTest::readFile(path(name)); }

    /** The exit code. What is printed goes to the file "messages". */
    int run(const std::string& conf, const std::string& output) const {
        const std::string command =
            RESOURCE_COMPILER " Name " + path(conf) + " " + path(output) + " >" + path("messages") + " 2>&1";
        const int status = std::system(command.data());
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    int runWith(const std::string& conf) const {
        put("a.conf", conf);
        return run("a.conf", "out.cpp");
    }

private:
    VantrelTest::TestFolder _directory;
};

TEST_F(ResourceCompiler, succeedsInSilence) {
    EXPECT_EQ(runWith("group=g\n[file]\nfilename=file.txt\n"), 0);
    EXPECT_EQ(get("messages"), "");
    EXPECT_THAT(get("out.cpp"), testing::HasSubstr("int corradeResourceInitializer_Name()"));
    EXPECT_THAT(get("out.cpp"), testing::HasSubstr("int corradeResourceFinalizer_Name()"));
}

TEST_F(ResourceCompiler, syntaxOfTheConfiguration) {
    EXPECT_EQ(runWith("group=g\n[file]\nfilename=file.txt\nalign=2\nnullTerminated=true\n"), 0);
    const std::string expected = get("out.cpp");
    EXPECT_EQ(runWith("group=g\n[file]\nfilename=file.txt\nalign=4\n"), 0);
    EXPECT_NE(get("out.cpp"), expected);

    const char* const equal[]{
        "# comment\n ; another\n\ngroup = \"g\"\n  [file]\n  filename =  file.txt \nalign = 2\nnullTerminated=yes\n",
        "group=g\r\n[file]\r\nfilename=file.txt\r\nalign=2\r\nnullTerminated=1\r\n",
        "group=g\nnullTerminated=y\nalign=2\n[file]\nfilename=file.txt",
        "group=g\n[file]\nfilename=file.txt\nalign=2\nnullTerminated=true\nunknown=3\n[unknown]\nfilename=4\n",
    };
    for(const char* const conf: equal) {
        SCOPED_TRACE(conf);
        EXPECT_EQ(runWith(conf), 0);
        EXPECT_EQ(get("out.cpp"), expected);
    }
    EXPECT_EQ(runWith("group=g\n[file]\nfilename=file.txt\nalign=2\nnullTerminated=false\n"), 0);
    EXPECT_NE(get("out.cpp"), expected);
}

TEST_F(ResourceCompiler, orderInTheConfigurationDoesNotMatter) {
    put("other.txt", "other");
    EXPECT_EQ(runWith("group=g\n[file]\nfilename=file.txt\n[file]\nfilename=other.txt\n"), 0);
    const std::string expected = get("out.cpp");
    EXPECT_EQ(runWith("group=g\n[file]\nfilename=other.txt\n[file]\nfilename=file.txt\n"), 0);
    EXPECT_EQ(get("out.cpp"), expected);
}

TEST_F(ResourceCompiler, absoluteFilenames) {
    EXPECT_EQ(runWith("group=g\n[file]\nalias=file.txt\nfilename=" + path("file.txt")), 0);
    const std::string expected = get("out.cpp");
    EXPECT_EQ(runWith("group=g\n[file]\nfilename=file.txt"), 0);
    EXPECT_EQ(get("out.cpp"), expected);
}

TEST_F(ResourceCompiler, failures) {
    const struct {
        const char *conf, *message;
    } cases[]{
        {"", "group"},
        {"[file]\nfilename=file.txt\n", "group"},
        {"group=g\n[file]\nfilename=missing.txt\n", "missing.txt"},
        {"group=g\n[file]\n", "g"},
        {"group=g\n[file]\nfilename=\n", "g"},
        {"group=g\n[file]\nfilename=file.txt\nalign=3\n", "3"},
        {"group=g\n[file]\nfilename=file.txt\nalign=256\n", "256"},
        {"group=g\n[file]\nfilename=file.txt\nalign=0\n", "0"},
        {"group=g\ngarbage\n", ""},
    };
    for(const auto& i: cases) {
        SCOPED_TRACE(i.conf);
        EXPECT_GT(runWith(i.conf), 0);
        EXPECT_NE(get("messages"), "");
        EXPECT_THAT(get("messages"), testing::HasSubstr(i.message));
        EXPECT_FALSE(std::filesystem::exists(path("out.cpp")));
    }
}

TEST_F(ResourceCompiler, unreadableConfiguration) {
    EXPECT_GT(run("missing.conf", "out.cpp"), 0);
    EXPECT_THAT(get("messages"), testing::HasSubstr("missing.conf"));
    EXPECT_FALSE(std::filesystem::exists(path("out.cpp")));
}

TEST_F(ResourceCompiler, unwritableOutput) {
    put("a.conf", "group=g\n");
    EXPECT_GT(run("a.conf", "missing/out.cpp"), 0);
    EXPECT_THAT(get("messages"), testing::HasSubstr("missing/out.cpp"));
}

}
