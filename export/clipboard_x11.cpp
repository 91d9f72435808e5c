// FLTK offers a picture on the clipboard as a bitmap only. So the program owns the X11 selection
// with a window that is never shown, and sends the picture in the requested format.
#include <FL/Fl.H>
#include <FL/x.H>
#include <X11/Xatom.h>

#include <algorithm>
#include <array>

#include "export/screen_picture.h"

namespace morvane {
namespace {

struct Form {
  const char* name;
  Bytes (*file)(const RgbImage&);
};
// Bitmaps are far larger than PNG files.
constexpr std::array<Form, 2> kForms = {{{"image/png", encodePng}, {"image/bmp", bitmapFile}}};

RgbImage offered;
Window owner = None;

Atom atom(const char* name) { return XInternAtom(fl_display, name, False); }

/// Whether the X server accepts so many bytes in one request. Incremental transfers (INCR) are not
/// supported.
bool fits(std::size_t bytes) {
  constexpr std::size_t kRequestHead = 64;
  const long words = std::max(XExtendedMaxRequestSize(fl_display), XMaxRequestSize(fl_display));
  return bytes + kRequestHead <= 4 * static_cast<std::size_t>(words);
}

/// Writes the requested format to the property of the requesting window. False for an unknown
/// format.
bool handOver(const XSelectionRequestEvent& request, Atom property) {
  const Atom targets = atom("TARGETS");
  const auto put = [&](Atom type, int bits, const void* data, std::size_t count) {
    XChangeProperty(fl_display, request.requestor, property, type, bits, PropModeReplace,
                    static_cast<const unsigned char*>(data), static_cast<int>(count));
    return true;
  };
  if (request.target == targets) {
    const std::array<Atom, 3> names = {targets, atom(kForms[0].name), atom(kForms[1].name)};
    return put(XA_ATOM, 32, names.data(), fits(bitmapFileBytes(offered)) ? 3 : 2);
  }
  for (const Form& form : kForms) {
    if (request.target != atom(form.name)) continue;
    const Bytes file = form.file(offered);
    return !file.empty() && fits(file.size()) && put(request.target, 8, file.data(), file.size());
  }
  return false;
}

int onSystemEvent(void* data, void* /*user*/) {
  const XEvent& event = *static_cast<XEvent*>(data);
  // FLTK must get this event too.
  if (event.type == SelectionClear && event.xselectionclear.window == owner) offered = {};
  if (event.type != SelectionRequest || event.xselectionrequest.owner != owner) return 0;
  const XSelectionRequestEvent& request = event.xselectionrequest;
  // Obsolete clients give no property; ICCCM then uses the target's atom.
  const Atom property = request.property != None ? request.property : request.target;
  XEvent answer{};
  answer.xselection.type = SelectionNotify;
  answer.xselection.requestor = request.requestor;
  answer.xselection.selection = request.selection;
  answer.xselection.target = request.target;
  answer.xselection.property = handOver(request, property) ? property : None;
  answer.xselection.time = request.time;
  XSendEvent(fl_display, request.requestor, False, NoEventMask, &answer);
  return 1;
}

}  // namespace

void copyToClipboard(const RgbImage& image) {
  if (owner == None) {
    owner = XCreateSimpleWindow(fl_display, DefaultRootWindow(fl_display), 0, 0, 1, 1, 0, 0, 0);
    Fl::add_system_handler(onSystemEvent, nullptr);
  }
  offered = image;
  // Otherwise FLTK would still paste the program's last own text.
  Fl::copy("", 0, 1);
  XSetSelectionOwner(fl_display, atom("CLIPBOARD"), owner, fl_event_time);
  XFlush(fl_display);
}

}  // namespace morvane
