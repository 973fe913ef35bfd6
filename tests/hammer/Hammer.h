// Random input for whatever windows a program shows: what users do, and what the desktop may send,
// in any order. One thread, the one of the windows.
#pragma once

#include <QPointF>
#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::hammer {

/// The same seed gives the same input, as far as the windows are the same and time does not enter.
class Hammer {
  public:
    explicit Hammer(std::uint64_t seed);

    /// Something that only the program knows how to do; the more weight, the more often.
    void addAction(std::string name, int weight, std::function<void()> act);

    /// Does one thing, and lets the program handle it.
    void strike();

    std::uint64_t below(std::uint64_t count);  ///< at random; 0 for 0
    /// How often what was done.
    const std::map<std::string, std::uint64_t>& counts() const { return counts_; }
    /// What is done just now.
    const char* presentAction() const { return present_; }

  private:
    struct Action {
        std::string name;
        int weight;
        std::function<void()> act;
    };
    struct Target {
        QPointer<QWidget> widget;
        QPointF point;
    };

    bool chance(int percent) { return static_cast<int>(below(100)) < percent; }
    QWidget* root();
    Target target();
    Target targetIn(QWidget& widget);
    Qt::KeyboardModifiers modifiers();
    bool sendMouse(const Target& target, int type, Qt::MouseButton button, Qt::MouseButtons held,
                   Qt::KeyboardModifiers modifiers);
    void sendKey(int key, const QString& text, Qt::KeyboardModifiers modifiers);

    void click();
    void drag();
    void hover();
    void askForMenu();
    void wheel();
    void pressKeys();
    void type();
    void composeText();
    void dropSomething();
    void resize();
    void changePalette();
    void changeFocus();
    void useAccessibility();
    void paint();
    void letTimePass();

    std::mt19937_64 random_;
    std::vector<Action> actions_;
    int weights_ = 0;
    std::map<std::string, std::uint64_t> counts_;
    const char* present_ = "";
};

}  // namespace corvane::hammer
