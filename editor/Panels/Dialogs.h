#pragma once

#include <deque>
#include <string>

namespace VantrelEngine {

// Shows what went wrong until the user has taken note of it. Texts wait for each other.
class MessageDialog {
public:
    void show(std::string text) { _texts.push_back(std::move(text)); }
    bool isOpen() const { return !_texts.empty(); }
    void draw();

private:
    std::deque<std::string> _texts;
};

enum class Answer { None, Yes, No, Cancel };

// Asks a question with two answers, or one where the other is empty, or to cancel.
class QuestionDialog {
public:
    void ask(std::string title, std::string question, std::string yes, std::string no);
    bool isOpen() const { return !_question.empty(); }
    // None while there is no answer yet.
    Answer draw();

private:
    std::string _title, _question, _yes, _no;
};

} // namespace VantrelEngine
