#include "Application/LogCapture.h"

#include <sstream>

#include <Corrade/Utility/Debug.h>
#include <gtest/gtest.h>

#include "Panels/Log.h"

namespace VantrelEngine {

namespace {

using namespace Corrade;

TEST(LogCaptureTest, LinesKeepWhatTheyAre) {
    std::ostringstream terminal;
    Utility::Debug debug{&terminal};
    Utility::Warning warning{&terminal};
    Utility::Error error{&terminal};
    Log log;
    {
        LogCapture capture{log};
        Utility::Debug{} << "opened";
        Utility::Warning{} << "missing";
        Utility::Error{} << "broken";
        // Said of every material that is dropped.
        Utility::Error{} << "Cannot set material on object without mesh component!";
    }
    Utility::Debug{} << "afterwards";
    constexpr Severity severities[]{Severity::Information, Severity::Warning, Severity::Error, Severity::Debug};
    ASSERT_EQ(log.lines().size(), 4u);
    for(std::size_t i = 0; i != 4; ++i) EXPECT_EQ(log.lines()[i].severity, severities[i]) << i;
    EXPECT_EQ(log.lines()[3].text, "Cannot set material on object without mesh component!");
    EXPECT_EQ(log.message().text, "broken");
    // The terminal has all of it.
    EXPECT_EQ(
        terminal.str(), "opened\nmissing\nbroken\nCannot set material on object without mesh component!\nafterwards\n");
}

}

} // namespace VantrelEngine
