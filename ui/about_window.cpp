#include "ui/about_window.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Image.H>
#include <FL/Fl_Text_Buffer.H>
#include <FL/Fl_Text_Display.H>
#include <FL/Fl_Window.H>

#include "ui/about_text.h"
#include "ui/images.h"
#include "widgets/look.h"

namespace morvane {
namespace {

struct TextEntry {
  int x, y, w, h;
  const char* text;
};

void addText(const TextEntry& entry) {
  auto* buffer = new Fl_Text_Buffer;
  buffer->text(entry.text);
  auto* display = new Fl_Text_Display(entry.x, entry.y, entry.w, entry.h);
  display->buffer(buffer);
  display->box(FL_FLAT_BOX);
  display->color(kBlack);
  display->textcolor(kWhite);
  display->textsize(14);
  display->hide_cursor();
  display->wrap_mode(Fl_Text_Display::WRAP_AT_BOUNDS, 0);
}

void addLogo() {
  Fl_Image* logo = loadImage("Logos/PNG", "Morvane-Reader-Software-REVERSED.png");
  auto* box = new Fl_Box(117, 50, logo != nullptr ? logo->w() : 0, logo != nullptr ? logo->h() : 0);
  box->image(logo);
}

}  // namespace

Fl_Window* buildAboutWindow() {
  auto* window = new Fl_Window(1000, 800, "About Morvane Viewer");
  window->color(kBlack);
  addLogo();
  addText({50, 350, 650, 410, kAgreementText});
  addText({720, 350, 250, 100, kVersionText});
  addText({720, 630, 250, 130, kContactText});
  window->end();
  window->hide();
  return window;
}

}  // namespace morvane
