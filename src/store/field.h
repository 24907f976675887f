#pragma once
// A box of a screen as the logic sees it: its text, and who wants to know when the text changes. The screens share what
// they know through such boxes (the season, the cursor, the names of a result), shown or hidden.
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace circuidex {

class Field {
public:
    Field() = default;
    explicit Field(std::string text) : m_text(std::move(text)) {}
    Field(const Field &) = delete;
    Field &operator=(const Field &) = delete;

    const std::string &text() const { return m_text; }
    bool empty() const { return m_text.empty(); }

    using Listener = std::function<void(const std::string &)>;

    // Listeners hear a text that differs from the one before, in the order of their registration.
    void set(std::string text)
    {
        if (text == m_text)
            return;
        m_text = std::move(text);
        for (std::size_t i = 0; i < m_listeners.size(); ++i)
            if (const Listener listener = m_listeners[i].second)
                listener(m_text);
    }

    // The number returned takes the listener away again.
    int listen(Listener listener)
    {
        m_listeners.emplace_back(++m_last, std::move(listener));
        return m_last;
    }
    void forget(int listener)
    {
        for (auto &[number, function] : m_listeners)
            if (number == listener)
                function = nullptr;
    }

private:
    std::string m_text;
    std::vector<std::pair<int, Listener>> m_listeners;
    int m_last = 0;
};

}
