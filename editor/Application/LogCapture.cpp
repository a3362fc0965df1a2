#include "Application/LogCapture.h"

#include <ostream>
#include <streambuf>
#include <string>

#include <Corrade/Utility/Debug.h>

#include "Panels/Log.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

/* Kept: said of every material that is dropped, also where all went well. */
constexpr const char* NoError = "Cannot set material on object without mesh component!";

// Hands each line to the log as soon as it is whole.
class LineBuffer: public std::streambuf {
public:
    explicit LineBuffer(Log& log, Severity severity, std::ostream& terminal):
        _log{log}, _severity{severity}, _terminal{terminal} {}

private:
    int_type overflow(int_type character) override {
        if(!traits_type::eq_int_type(character, traits_type::eof())) add(traits_type::to_char_type(character));
        return traits_type::not_eof(character);
    }

    std::streamsize xsputn(const char* text, std::streamsize size) override {
        for(std::streamsize i = 0; i != size; ++i) add(text[i]);
        return size;
    }

    int sync() override {
        _terminal.flush();
        return 0;
    }

    void add(char character) {
        _terminal.put(character);
        if(character != '\n') {
            _line += character;
            return;
        }
        _terminal.flush();
        const Severity severity = _line == NoError ? Severity::Debug : _severity;
        _log.add(severity, std::move(_line));
        _line.clear();
    }

    Log& _log;
    Severity _severity;
    std::ostream& _terminal;
    std::string _line;
};

} // namespace

struct LogCapture::State {
    LineBuffer information, warning, error;
    std::ostream informationStream{&information}, warningStream{&warning}, errorStream{&error};
    Utility::Debug redirectInformation{&informationStream};
    Utility::Warning redirectWarning{&warningStream};
    Utility::Error redirectError{&errorStream};

    explicit State(Log& log):
        information{log, Severity::Information, *Utility::Debug::output()},
        warning{log, Severity::Warning, *Utility::Warning::output()}, error{log, Severity::Error,
                                                                          *Utility::Error::output()} {}
};

LogCapture::LogCapture(Log& log): _state{std::make_unique<State>(log)} {}

LogCapture::~LogCapture() = default;

} // namespace VantrelEngine
