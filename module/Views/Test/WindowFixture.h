#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>
#include <gtest/gtest.h>
#include <imgui.h>
#include <imgui_internal.h>

namespace VantrelTest {

// A user interface that nobody sees: a window with a menu bar that fills it, what is drawn there, and a mouse.
class WindowTest: public testing::Test {
protected:
    WindowTest() {
        ImGuiIO& io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = {800.0f, 600.0f};
        unsigned char* pixels;
        int width, height;
        io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
        moveAway();
    }
    ~WindowTest() override { ImGui::DestroyContext(_context); }

    // Of the window: everything that the test is about.
    virtual void draw() = 0;

    void frame() {
        ImGui::NewFrame();
        ImGui::SetNextWindowPos({0.0f, 0.0f});
        ImGui::SetNextWindowSize(ImGui::GetIO().DisplaySize);
        ImGui::Begin("view", nullptr, ImGuiWindowFlags_MenuBar | ImGuiWindowFlags_NoBringToFrontOnFocus);
        if(_isWriting) ImGui::LogToClipboard();
        draw();
        ImGui::End();
        ImGui::Render();
    }
    // What is written in a frame, up to the end of the first window within; without the marks of fields and what only makes
    // room.
    std::vector<std::string> written() {
        ImGui::SetClipboardText("");
        _isWriting = true;
        frame();
        _isWriting = false;
        return linesOf(ImGui::GetClipboardText());
    }

    void moveTo(const Magnum::Vector2& point) {
        ImGui::GetIO().MousePos = {point.x(), point.y()};
        frame();
        frame();
    }
    void moveAway() { ImGui::GetIO().MousePos = {-100.0f, -100.0f}; }
    void click(const Magnum::Vector2& point) {
        moveTo(point);
        ImGui::GetIO().MouseDown[0] = true;
        frame();
        ImGui::GetIO().MouseDown[0] = false;
        frame();
        frame();
    }

    // None where it is not shown.
    static const ImGuiWindow* window(const char* name) {
        const ImGuiWindow* const window = ImGui::FindWindowByName(name);
        return window && window->Active && !window->Hidden ? window : nullptr;
    }
    static ImGuiWindow& openPopup() { return *ImGui::GetCurrentContext()->OpenPopupStack.back().Window; }
    static std::size_t vertexCount(const ImGuiWindow& window, ImU32 colour) {
        const auto& vertices = window.DrawList->VtxBuffer;
        return std::size_t(std::count_if(
            vertices.begin(), vertices.end(), [&](const ImDrawVert& vertex) { return vertex.col == colour; }));
    }

private:
    static std::vector<std::string> linesOf(const std::string& text) {
        std::vector<std::string> lines(1);
        for(const char letter: text) {
            std::string& line = lines.back();
            if(letter == '\n') {
                while(!line.empty() && line.back() == ' ') line.pop_back();
                if(!line.empty()) lines.emplace_back();
            } else if(std::string{"{}[]"}.find(letter) == std::string::npos &&
                (letter != ' ' || (!line.empty() && line.back() != ' ')))
                line += letter;
        }
        if(lines.back().empty()) lines.pop_back();
        return lines;
    }

    ImGuiContext* _context = ImGui::CreateContext();
    bool _isWriting = false;
};

}
