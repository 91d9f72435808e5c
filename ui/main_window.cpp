#include "ui/main_window.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_RGB_Image.H>
#include <FL/Fl_Shared_Image.H>
#include <FL/Fl_Text_Display.H>

#include "app/app_state.h"
#include "ui/button_box.h"
#include "ui/console.h"
#include "ui/controls.h"
#include "ui/images.h"
#include "ui/look.h"
#include "ui/menu.h"
#include "view/gl_window.h"

namespace morvane {
namespace {

constexpr int kWindowWidth = 1280;
constexpr int kWindowHeight = 800;
constexpr int kMenuHeight = 25;
constexpr int kViewX = 150;
constexpr int kViewWidth = kWindowWidth - kViewX;
constexpr int kViewHeight = kWindowHeight - kMenuHeight;

Fl_Double_Window* makeWindow() {
  auto* window = new Fl_Double_Window(kWindowWidth, kWindowHeight, "Morvane Reader Software");
  window->color(kBlack);
  if (auto* icon = dynamic_cast<Fl_RGB_Image*>(loadImage("Icons", "MRV3ico.png"))) {
    window->icon(icon);
  }
  return window;
}

Fl_Menu_Bar* makeMenuBar() {
  auto* menu = new Fl_Menu_Bar(0, 0, kWindowWidth, kMenuHeight);
  menu->box(FL_FLAT_BOX);
  menu->color(kBlack);
  menu->textcolor(kWhite);
  return menu;
}

GLWindow* makeView(AppState& app) {
  auto* view = new GLWindow(kViewX, kMenuHeight, kViewWidth, kViewHeight, "TestOPGL");
  view->hide();
  view->exeFolder = app.exeFolder;
  view->onTrouble = appendConsole;
  return view;
}

Fl_Box* makeLogoBox() {
  auto* box = new Fl_Box(140, kMenuHeight, kViewWidth, kViewHeight);
  box->image(loadImage("Logos", "CX-Logo-white.png", 1000, 120));
  return box;
}

Fl_Window* makeControlsPanel() {
  auto* panel = new Fl_Window(2, kMenuHeight, kViewX, kViewHeight, "controls");
  panel->color(kBlack);
  buildControls();
  panel->end();
  return panel;
}

Fl_Window* makeConsolePanel(AppState& app) {
  auto* panel = new Fl_Window(135, 650, 1160, 150, "Console");
  app.consoleText = new Fl_Text_Buffer;
  (new Fl_Text_Display(0, 0, 1160, 120))->buffer(app.consoleText);
  new Fl_Input(0, 120, 1160, 30);
  panel->end();
  panel->hide();
  return panel;
}

}  // namespace

void buildMainWindow() {
  AppState& app = appState();
  fl_register_images();
  registerButtonBox();
  app.mainWindow = makeWindow();
  app.menuBar = makeMenuBar();
  buildMenu();
  app.glView = makeView(app);
  app.logoBox = makeLogoBox();
  app.controlsPanel = makeControlsPanel();
  app.consolePanel = makeConsolePanel(app);
  app.mainWindow->resizable(app.glView);
  app.mainWindow->end();
  app.mainWindow->hide();
}

}  // namespace morvane
