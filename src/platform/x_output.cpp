// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/x_output.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>

#include <xcb/randr.h>
#include <xcb/xcb.h>

namespace circuidex {

namespace {

struct Free {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename T>
using Reply = std::unique_ptr<T, Free>;

// The answer to a request; null for an error of X or a connection that is gone, neither of which ends the program.
template <typename Ask, typename Answer, typename... Arguments>
auto asked(Ask ask, Answer answer, xcb_connection_t *x, Arguments... arguments)
{
    xcb_generic_error_t *error = nullptr;
    auto *reply = answer(x, ask(x, arguments...), &error);
    std::free(error);
    return Reply<std::remove_pointer_t<decltype(reply)>>(reply);
}
#define CIRCUIDEX_ASKED(request, ...) asked(xcb_##request, xcb_##request##_reply, __VA_ARGS__)

using Resources = Reply<xcb_randr_get_screen_resources_current_reply_t>;
using OutputInfo = Reply<xcb_randr_get_output_info_reply_t>;
using CrtcInfo = Reply<xcb_randr_get_crtc_info_reply_t>;

std::span<const xcb_randr_mode_info_t> modesOf(const Resources &resources)
{
    const auto *info = resources.get();
    return {xcb_randr_get_screen_resources_current_modes(info),
            std::size_t(xcb_randr_get_screen_resources_current_modes_length(info))};
}

int rateOf(const xcb_randr_mode_info_t &mode)
{
    double lines = mode.vtotal;
    if (mode.mode_flags & XCB_RANDR_MODE_FLAG_DOUBLE_SCAN)
        lines *= 2;
    if (mode.mode_flags & XCB_RANDR_MODE_FLAG_INTERLACE)
        lines /= 2;
    const double dots = mode.htotal * lines;
    return dots > 0 ? int(std::min(std::round(mode.dot_clock * 1000. / dots), 1e6)) : 0;
}

bool isOnItsSide(unsigned rotation)
{
    return rotation & (XCB_RANDR_ROTATION_ROTATE_90 | XCB_RANDR_ROTATION_ROTATE_270);
}

OutputMode modeOf(const xcb_randr_mode_info_t &mode, unsigned rotation)
{
    if (isOnItsSide(rotation))
        return {mode.height, mode.width, rateOf(mode)};
    return {mode.width, mode.height, rateOf(mode)};
}

struct Extent {
    int width = 0, height = 0;
    bool operator==(const Extent &) const = default;
};

class XOutput : public DisplayOutput {
public:
    static std::unique_ptr<XOutput> primary();
    ~XOutput() override { xcb_disconnect(m_x); }
    XOutput(const XOutput &) = delete;
    XOutput &operator=(const XOutput &) = delete;

    std::string name() const override;
    OutputMode present() const override;
    std::vector<OutputMode> offered() const override;
    bool set(const OutputMode &mode) override;

private:
    XOutput();
    bool find();
    bool takes(xcb_randr_output_t output);

    Resources resources() const { return CIRCUIDEX_ASKED(randr_get_screen_resources_current, m_x, m_root); }
    OutputInfo info(xcb_randr_output_t output) const
    {
        return CIRCUIDEX_ASKED(randr_get_output_info, m_x, output, xcb_timestamp_t(XCB_CURRENT_TIME));
    }
    CrtcInfo crtc(xcb_randr_crtc_t crtc) const
    {
        return CIRCUIDEX_ASKED(randr_get_crtc_info, m_x, crtc, xcb_timestamp_t(XCB_CURRENT_TIME));
    }
    const xcb_randr_mode_info_t *modeNumbered(const Resources &resources, xcb_randr_mode_t number) const;
    std::vector<xcb_randr_mode_info_t> ownModes(const Resources &resources) const;
    bool setMode(const xcb_randr_mode_info_t &mode, const Resources &resources, const CrtcInfo &before);
    bool configure(const CrtcInfo &as, xcb_randr_mode_t mode);
    Extent screenWith(const OutputMode &mode, const Resources &resources, const CrtcInfo &own) const;
    Extent screen() const;
    bool resize(const Extent &to);

    xcb_connection_t *m_x;
    xcb_window_t m_root = 0;
    double m_millimetres = 25.4 / 96; // of a pixel
    xcb_randr_output_t m_output = 0;
    xcb_randr_crtc_t m_crtc = 0; // what drives the output
};

// A connection of its own: the windows of the program are not held up, and errors stay here.
XOutput::XOutput() : m_x(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_x))
        return;
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(m_x)).data;
    m_root = screen->root;
    if (screen->width_in_pixels && screen->width_in_millimeters)
        m_millimetres = double(screen->width_in_millimeters) / screen->width_in_pixels;
}

std::unique_ptr<XOutput> XOutput::primary()
{
    std::unique_ptr<XOutput> output(new XOutput);
    return output->m_root && output->find() ? std::move(output) : nullptr;
}

bool XOutput::takes(xcb_randr_output_t output)
{
    const OutputInfo about = output ? info(output) : nullptr;
    if (!about || about->connection != XCB_RANDR_CONNECTION_CONNECTED || !about->crtc)
        return false;
    m_output = output;
    m_crtc = about->crtc;
    return true;
}

// The primary one, or the first that is on.
bool XOutput::find()
{
    const auto *extension = xcb_get_extension_data(m_x, &xcb_randr_id);
    const auto version = extension && extension->present ? CIRCUIDEX_ASKED(randr_query_version, m_x, 1u, 3u) : nullptr;
    if (!version || (version->major_version == 1 && version->minor_version < 3))
        return false;
    const auto primary = CIRCUIDEX_ASKED(randr_get_output_primary, m_x, m_root);
    if (primary && takes(primary->output))
        return true;
    const Resources all = resources();
    if (!all)
        return false;
    const std::span outputs(xcb_randr_get_screen_resources_current_outputs(all.get()), all->num_outputs);
    return std::any_of(outputs.begin(), outputs.end(), [this](auto output) { return takes(output); });
}

std::string XOutput::name() const
{
    const OutputInfo about = info(m_output);
    if (!about)
        return {};
    const auto *bytes = reinterpret_cast<const char *>(xcb_randr_get_output_info_name(about.get()));
    return {bytes, std::size_t(xcb_randr_get_output_info_name_length(about.get()))};
}

const xcb_randr_mode_info_t *XOutput::modeNumbered(const Resources &resources, xcb_randr_mode_t number) const
{
    const auto modes = modesOf(resources);
    const auto found = std::find_if(modes.begin(), modes.end(), [&](const auto &mode) { return mode.id == number; });
    return found == modes.end() ? nullptr : &*found;
}

OutputMode XOutput::present() const
{
    const Resources all = resources();
    const CrtcInfo own = crtc(m_crtc);
    const auto *mode = all && own ? modeNumbered(all, own->mode) : nullptr;
    return mode ? modeOf(*mode, own->rotation) : OutputMode();
}

// In the server's order, the display's favourite first.
std::vector<xcb_randr_mode_info_t> XOutput::ownModes(const Resources &resources) const
{
    std::vector<xcb_randr_mode_info_t> modes;
    const OutputInfo about = info(m_output);
    if (!about)
        return modes;
    for (const auto number : std::span(xcb_randr_get_output_info_modes(about.get()), about->num_modes))
        if (const auto *mode = modeNumbered(resources, number))
            modes.push_back(*mode);
    return modes;
}

std::vector<OutputMode> XOutput::offered() const
{
    std::vector<OutputMode> offered;
    const Resources all = resources();
    const CrtcInfo own = crtc(m_crtc);
    if (all && own)
        for (const auto &mode : ownModes(all))
            offered.push_back(modeOf(mode, own->rotation));
    return offered;
}

bool XOutput::set(const OutputMode &wanted)
{
    const Resources all = resources();
    const CrtcInfo own = crtc(m_crtc);
    if (!all || !own)
        return false;
    const auto modes = ownModes(all);
    const auto mode =
        std::find_if(modes.begin(), modes.end(), [&](const auto &one) { return modeOf(one, own->rotation) == wanted; });
    if (mode == modes.end())
        return false;
    xcb_grab_server(m_x); // nobody sees the steps between, nor takes one of his own
    const bool done = setMode(*mode, all, own);
    xcb_ungrab_server(m_x);
    xcb_flush(m_x);
    return done;
}

// The screen that all displays show a part of is as large as they need: it grows before a display does and shrinks
// after.
bool XOutput::setMode(const xcb_randr_mode_info_t &mode, const Resources &resources, const CrtcInfo &before)
{
    const Extent old = screen(), wanted = screenWith(modeOf(mode, before->rotation), resources, before);
    const Extent most = {std::max(old.width, wanted.width), std::max(old.height, wanted.height)};
    if (resize(most) && configure(before, mode.id)) {
        resize(wanted); // one that stays too large does no harm
        return true;
    }
    resize(old);
    return false;
}

bool XOutput::configure(const CrtcInfo &as, xcb_randr_mode_t mode)
{
    const Resources now = resources();
    const auto set = now ? CIRCUIDEX_ASKED(randr_set_crtc_config, m_x, m_crtc, xcb_timestamp_t(XCB_CURRENT_TIME),
                                           now->config_timestamp, as->x, as->y, mode, as->rotation,
                                           uint32_t(as->num_outputs), xcb_randr_get_crtc_info_outputs(as.get()))
                         : nullptr;
    return set && set->status == XCB_RANDR_SET_CONFIG_SUCCESS;
}

Extent XOutput::screenWith(const OutputMode &mode, const Resources &resources, const CrtcInfo &own) const
{
    Extent all = {own->x + mode.width, own->y + mode.height};
    for (const auto number :
         std::span(xcb_randr_get_screen_resources_current_crtcs(resources.get()), resources->num_crtcs)) {
        const CrtcInfo other = number == m_crtc ? nullptr : crtc(number);
        if (other && other->mode)
            all = {std::max(all.width, other->x + other->width), std::max(all.height, other->y + other->height)};
    }
    return all;
}

Extent XOutput::screen() const
{
    const auto geometry = CIRCUIDEX_ASKED(get_geometry, m_x, m_root);
    return geometry ? Extent{geometry->width, geometry->height} : Extent{};
}

// The dots of an inch stay as many as they are.
bool XOutput::resize(const Extent &to)
{
    if (to == screen())
        return true;
    const auto range = CIRCUIDEX_ASKED(randr_get_screen_size_range, m_x, m_root);
    if (!range || to.width > range->max_width || to.height > range->max_height)
        return false;
    const auto millimetres = [this](int pixels) { return uint32_t(std::lround(pixels * m_millimetres)); };
    const auto cookie = xcb_randr_set_screen_size_checked(m_x, m_root, uint16_t(to.width), uint16_t(to.height),
                                                          millimetres(to.width), millimetres(to.height));
    const Reply<xcb_generic_error_t> error(xcb_request_check(m_x, cookie));
    return !error && !xcb_connection_has_error(m_x);
}

}

std::unique_ptr<DisplayOutput> primaryXOutput()
{
    return XOutput::primary();
}

}
