// A clipboard manager as a desktop has one, reduced to a single act: when a program that is about
// to end asks it to keep the clipboard (SAVE_TARGETS), it reads the text and writes it to standard
// output. It prints "ready" first, and ends with the act.

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <iostream>
#include <memory>
#include <string>

namespace {

class Manager {
 public:
  explicit Manager(Display* display)
      : display_(display),
        window_(XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0, 1, 1, 0, 0, 0)) {
    XSetSelectionOwner(display_, Intern("CLIPBOARD_MANAGER"), window_, CurrentTime);
    XFlush(display_);
  }

  /// Waits for the request, reads the text and only then answers: the program may be gone at once.
  std::string KeepClipboard() {
    XSelectionRequestEvent request = WaitFor(SelectionRequest).xselectionrequest;
    while (request.target != Intern("SAVE_TARGETS")) {
      request = WaitFor(SelectionRequest).xselectionrequest;
    }
    const Atom property = Intern("KEPT");
    XConvertSelection(display_, Intern("CLIPBOARD"), Intern("UTF8_STRING"), property, window_,
                      request.time);
    WaitFor(SelectionNotify);
    std::string text = ReadProperty(property);

    XEvent answer{};
    answer.xselection.type = SelectionNotify;
    answer.xselection.requestor = request.requestor;
    answer.xselection.selection = request.selection;
    answer.xselection.target = request.target;
    answer.xselection.property = request.property;
    answer.xselection.time = request.time;
    XSendEvent(display_, request.requestor, False, NoEventMask, &answer);
    XFlush(display_);
    return text;
  }

 private:
  Atom Intern(const char* name) { return XInternAtom(display_, name, False); }

  XEvent WaitFor(int type) {
    XEvent event{};
    do {
      XNextEvent(display_, &event);
    } while (event.type != type);
    return event;
  }

  std::string ReadProperty(Atom property) {
    constexpr long kMost = 1 << 16;  // in units of four bytes
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display_, window_, property, 0, kMost, False, AnyPropertyType, &type,
                       &format, &count, &rest, &data);
    const std::unique_ptr<unsigned char, int (*)(void*)> owner(data, XFree);
    return data == nullptr ? std::string() : std::string(reinterpret_cast<char*>(data), count);
  }

  Display* display_;
  Window window_;
};

}  // namespace

int main() {
  const std::unique_ptr<Display, int (*)(Display*)> display(XOpenDisplay(nullptr), XCloseDisplay);
  if (display == nullptr) return 1;
  Manager manager(display.get());
  std::cout << "ready" << std::endl;
  std::cout << manager.KeepClipboard() << std::flush;
}
