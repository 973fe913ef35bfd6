// A host widget with views in it, driven by events as the desktop sends them.
#pragma once

#include "corvane/qt/HostWidget.h"
#include "corvane/qt/QtRunLoop.h"
#include "corvane/qt/QtTextMeasurer.h"
#include "corvane/views/Event.h"
#include "corvane/views/TextView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace corvane::qt {

/// Notes what it gets.
struct NotingView : views::View {
    using View::View;
    bool mouseDown(const views::MouseEvent& event) override { return note("down", event); }
    bool mouseDragged(const views::MouseEvent& event) override { return note("drag", event); }
    bool mouseUp(const views::MouseEvent& event) override { return note("up", event); }
    bool keyDown(const views::KeyEvent& event) override {
        const bool wanted = keys;
        if (wanted) log += "key " + std::to_string(event.firstCharacter()) + "; ";
        return wanted;
    }
    bool acceptsFirstResponder() const override { return true; }
    void draw(views::Canvas&, const views::Rect&) override { ++drawn; }
    bool note(const char* what, const views::MouseEvent& event) {
        const auto at = event.locationInWindow();
        log += what + std::to_string(event.clickCount()) + " " + std::to_string(int(at.x)) + "," +
               std::to_string(int(at.y)) + (event.modifierFlags() ? "*; " : "; ");
        return true;
    }
    std::string takeLog() { return std::exchange(log, ""); }

    std::string log;
    bool keys = true;
    int drawn = 0;
};

class HostTest : public testing::Test {
  protected:
    template <class T = NotingView>
    std::shared_ptr<T> add(const views::Rect& frame) {
        auto view = std::make_shared<T>(frame);
        host.viewWindow().root().addSubview(view);
        return view;
    }
    void show() {
        host.resize(200, 100);
        host.show();
        host.activateWindow();
        QApplication::processEvents();
    }
    void mouse(QEvent::Type type, QPointF at, Qt::KeyboardModifiers modifiers = {}) {
        const bool held = type != QEvent::MouseButtonRelease;
        QMouseEvent event(type, at, host.mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                          held ? Qt::LeftButton : Qt::NoButton, modifiers);
        QApplication::sendEvent(&host, &event);
    }
    void click(QPointF at) {
        mouse(QEvent::MouseButtonPress, at);
        mouse(QEvent::MouseButtonRelease, at);
    }
    /// To whoever has the focus, as the desktop does it.
    static void press(int key, const char* text = "", Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, QString::fromUtf8(text));
        ASSERT_TRUE(QApplication::focusWidget());
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    }
    void wheel(QPointF at, QPoint pixels, QPoint angle, Qt::KeyboardModifiers modifiers = {}) {
        QWheelEvent event(at, host.mapToGlobal(at), pixels, angle, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&host, &event);
    }

    QtRunLoop loop;
    platform::ScopedMainRunLoop loopScope{loop};
    QtTextMeasurer measurer;
    views::ScopedTextMeasurer measurerScope{measurer};
    HostWidget host;
};

}  // namespace corvane::qt
