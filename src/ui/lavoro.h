#pragma once
// A worker thread of its own for a slow service (the sound device, the speech
// service) to which the GUI thread only hands requests. The state it shares
// with its owner (a `Condiviso` with members m, cv, fine and finito) lives as
// long as either of them: a service that hangs while the program ends must
// not keep it from ending, so after a short wait the worker is left to the
// system with what it uses.
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>

template <typename Condiviso> class Lavoro
{
public:
    using Corpo = void (*)(std::shared_ptr<Condiviso>);
    explicit Lavoro(Corpo corpo) : c(std::make_shared<Condiviso>()), corpo_(corpo) {}
    ~Lavoro()
    {
        if (!filo_.joinable())
            return;
        std::unique_lock lk(c->m);
        c->fine = true;
        c->cv.notify_all();
        const bool finito = c->cv.wait_for(lk, std::chrono::milliseconds(500), [&] { return c->finito; });
        lk.unlock();
        if (finito)
            filo_.join();
        else
            filo_.detach();
    }
    Lavoro(const Lavoro &) = delete;
    Lavoro &operator=(const Lavoro &) = delete;

    // `cambia` edits the shared state under its lock and says whether there
    // is work; the worker, started at the first such request, is woken.
    template <typename F> void chiedi(F &&cambia)
    {
        {
            std::lock_guard lk(c->m);
            if (!cambia(*c))
                return;
        }
        if (!filo_.joinable())
            filo_ = std::thread(corpo_, c);
        c->cv.notify_all();
    }

    const std::shared_ptr<Condiviso> c;

private:
    Corpo corpo_;
    std::thread filo_;
};
