// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A box of a screen as the logic sees it: its text, and who wants to know when the text changes. The screens share what
// they know through such boxes (the season, the cursor, the names of a result), shown or hidden.
#include <functional>
#include <memory>
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
        ++m_telling;
        for (std::size_t i = 0; i < m_listeners.size(); ++i)
            if (const auto owner = m_listeners[i].first.lock()) {
                const Listener listener = m_listeners[i].second; // it may register others
                listener(m_text);
            }
        --m_telling;
    }

    // The listener is heard as long as its owner lives; either may go before the field.
    void listen(std::weak_ptr<const void> owner, Listener listener)
    {
        if (m_telling == 0)
            std::erase_if(m_listeners, [](const auto &known) { return known.first.expired(); });
        m_listeners.emplace_back(std::move(owner), std::move(listener));
    }

private:
    std::string m_text;
    std::vector<std::pair<std::weak_ptr<const void>, Listener>> m_listeners;
    int m_telling = 0;
};

}
