#pragma once
// The event boundary: an error that stops a handler ends the handler only.
#include <QDebug>
#include <exception>
#include <utility>

template <typename F>
void confine(F &&handler)
{
    try {
        std::forward<F>(handler)();
    } catch (const std::exception &e) {
        qWarning("handler stopped: %s", e.what());
    }
}
