// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/display_changer.h"

namespace circuidex {

DisplayChanger::DisplayChanger(Finder output, std::filesystem::path noteFolder)
    : m_output(std::move(output)), m_note(std::move(noteFolder))
{
}

std::optional<OutputMode> DisplayChanger::present() const
{
    const auto output = m_output();
    return output ? std::optional(output->present()) : std::nullopt;
}

int DisplayChanger::rateFor(const DisplayOutput &output, const OutputMode &size, int hertz) const
{
    if (m_noted && m_noted->output == output.name() && m_noted->own.hasSizeOf(size))
        return m_noted->own.rate;
    const OutputMode present = output.present();
    return present.hasSizeOf(size) ? present.rate : hertz * 1000;
}

void DisplayChanger::note(const NotedDisplay &noted)
{
    m_noted = noted;
    m_note.write(noted); // where that fails, the change is as good as without a note
}

bool DisplayChanger::set(DisplayOutput &output, const OutputMode &mode)
{
    const std::string name = output.name();
    if (!m_noted || m_noted->output != name)
        note({name, output.present(), mode});
    else if (mode != m_noted->own)
        note({name, m_noted->own, mode});
    const bool done = output.set(mode);
    const OutputMode now = output.present();
    if (now == m_noted->own) {
        m_note.remove();
        m_noted.reset();
    } else if (now != m_noted->changed) {
        note({name, m_noted->own, now});
    }
    return done;
}

bool DisplayChanger::change(int width, int height, int hertz)
{
    const auto output = m_output();
    if (!output)
        return false;
    const OutputMode size = {width, height, 0};
    const auto mode = modeOfSize(output->offered(), {width, height, rateFor(*output, size, hertz)});
    return mode && set(*output, *mode);
}

void DisplayChanger::changePlainly(int width, int height)
{
    const auto output = m_output();
    if (const auto mode = output ? nearestMode(output->offered(), width, height) : std::nullopt)
        set(*output, *mode);
}

void DisplayChanger::putBack()
{
    const auto output = m_output();
    const auto noted = output ? m_note.leftBehind() : std::nullopt;
    if (!noted)
        return;
    if (noted->output == output->name() && noted->changed == output->present())
        if (const auto own = modeOfSize(output->offered(), noted->own))
            output->set(*own);
    m_note.remove();
}

}
