// SPDX-License-Identifier: GPL-3.0-or-later
// start_time TITLE PROGRAM [ARGUMENT...]: starts a program on the display of DISPLAY ten times and prints the middle time
// from the start of its process to the first frame of the window whose title holds TITLE, in milliseconds, and the memory
// of its own, its share of shared pages included, a second later. Without a window manager the program's windows stand right below the root.
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <optional>
#include <set>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

int ignored(Display *, XErrorEvent *) // a window that went meanwhile
{
    return 0;
}

std::vector<Window> topWindows(Display *display)
{
    Window root, parent, *children = nullptr;
    unsigned count = 0;
    XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
    std::vector<Window> windows(children, children + count);
    if (children)
        XFree(children);
    return windows;
}

std::string titleOf(Display *display, Window window)
{
    const Atom name = XInternAtom(display, "_NET_WM_NAME", False), text = XInternAtom(display, "UTF8_STRING", False);
    Atom type;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char *value = nullptr;
    XGetWindowProperty(display, window, name, 0, 200, False, text, &type, &format, &count, &left, &value);
    const std::string title = value ? reinterpret_cast<char *>(value) : "";
    if (value)
        XFree(value);
    return title;
}

// Something stands in it: some row of pixels across its middle has more than one colour.
bool painted(Display *display, Window window, const XWindowAttributes &shape)
{
    const int high = std::min(60, shape.height);
    XImage *image = XGetImage(display, window, 0, (shape.height - high) / 2, static_cast<unsigned>(shape.width),
                              static_cast<unsigned>(high), AllPlanes, ZPixmap);
    if (!image)
        return false;
    std::set<unsigned long> colours;
    for (int y = 0; y < high; y += 4)
        for (int x = 0; x < shape.width; ++x)
            colours.insert(XGetPixel(image, x, y));
    XDestroyImage(image);
    return colours.size() > 3;
}

bool showsItself(Display *display, const char *title)
{
    for (const Window window : topWindows(display)) {
        XWindowAttributes shape;
        if (XGetWindowAttributes(display, window, &shape) && shape.map_state == IsViewable && shape.width > 300 &&
            titleOf(display, window).find(title) != std::string::npos && painted(display, window, shape))
            return true;
    }
    return false;
}

long megabytesOf(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    long sum = 0;
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("Pss:"))
            sum += std::atol(line.c_str() + 4);
    return sum / 1024;
}

struct Run {
    double milliseconds;
    long megabytes;
};

std::optional<Run> run(Display *display, const char *title, char **program)
{
    const auto start = Clock::now();
    const pid_t process = fork();
    if (process == 0) {
        execv(program[0], program);
        _exit(127);
    }
    bool seen = false;
    while (!seen && Clock::now() - start < std::chrono::seconds(20)) {
        seen = showsItself(display, title);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    const std::chrono::duration<double, std::milli> took = Clock::now() - start;
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const long memory = megabytesOf(process);
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
    return seen ? std::optional(Run{took.count(), memory}) : std::nullopt;
}

}

int main(int argc, char **argv)
{
    Display *display = argc > 2 ? XOpenDisplay(nullptr) : nullptr;
    if (!display) {
        std::fprintf(stderr, "start_time TITLE PROGRAM [ARGUMENT...], on an X display\n");
        return 2;
    }
    XSetErrorHandler(ignored);
    std::vector<double> times;
    long memory = 0;
    for (int i = 0; i < 10; ++i)
        if (const auto one = run(display, argv[1], argv + 2)) {
            times.push_back(one->milliseconds);
            memory = std::max(memory, one->megabytes);
        }
    if (times.empty()) {
        std::fprintf(stderr, "No such window came.\n");
        return 1;
    }
    std::sort(times.begin(), times.end());
    std::printf("%.0f ms (%.0f to %.0f), %ld MB\n", times[times.size() / 2], times.front(), times.back(), memory);
    return 0;
}
