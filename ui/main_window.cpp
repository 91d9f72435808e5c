#include "ui/main_window.h"

#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_RGB_Image.H>
#include <FL/Fl_Shared_Image.H>
#include <FL/Fl_Text_Display.H>

#include "base/folders.h"
#include "base/paths.h"
#include "base/safe_file.h"
#include "geometry/key_column.h"
#include "ui/about_window.h"
#include "ui/app_state.h"
#include "ui/call_soon.h"
#include "ui/choosers.h"
#include "ui/config_manager.h"
#include "ui/console.h"
#include "ui/controls.h"
#include "ui/file_actions.h"
#include "ui/filter_actions.h"
#include "ui/filter_window.h"
#include "ui/gl_window.h"
#include "ui/heat_map_dialog.h"
#include "ui/images.h"
#include "ui/light_window.h"
#include "ui/menu.h"
#include "ui/quit_dialog.h"
#include "ui/readout.h"
#include "ui/results_panel.h"
#include "ui/status_line.h"
#include "ui/view_controls.h"
#include "ui/view_layout.h"
#include "ui/window_geometry.h"
#include "widgets/button_box.h"
#include "widgets/look.h"

namespace morvane {
namespace {

constexpr int kLogoX = 140;

/// Gives every window of the program its icon.
void setIcon() {
  const Fl_Image* image = loadImage("Icons", "MRV3ico.png");
  if (image == nullptr || image->count() != 1) return;
  const auto* pixels = reinterpret_cast<const uchar*>(image->data()[0]);
  const Fl_RGB_Image icon(pixels, image->w(), image->h(), image->d());
  Fl_Window::default_icon(&icon);
}

/// Kept: loads pictures that are not shown anywhere.
void loadSparePictures() {
  for (const char* name : {"auto.png", "3D.png", "points.png", "ico2d.png", "ico3d.png"}) {
    loadImage("Icons", name);
  }
}

/// The results column is laid out for a font with these metrics.
void useProgramFont() {
  Fl::set_font(FL_HELVETICA, " Liberation Sans");
  Fl::set_font(FL_HELVETICA_BOLD, "BLiberation Sans");
}

/// Opens a dropped file, but not while a modal dialog is open: its action needs the current
/// measurement.
void openDropped(const std::string& path) {
  if (Fl::modal() == nullptr) openFile(path);
}

/// A window whose children keep their places when it is resized.
class MainWindow : public Fl_Double_Window {
 public:
  using Fl_Double_Window::Fl_Double_Window;
  void resize(int x, int y, int w, int h) override {
    Fl_Double_Window::resize(x, y, w, h);
    layoutViews();
  }
  /// Opens a dropped file later, since the program that it came from waits for the end of the drop.
  int handle(int event) override {
    if (event != FL_PASTE) return Fl_Double_Window::handle(event);
    callSoon(openDropped,
             pathOfLink({Fl::event_text(), static_cast<std::size_t>(Fl::event_length())}));
    return 1;
  }
};

/// Accepts a dropped file anywhere on the main window. By default FLTK sends the drop to the child
/// below the pointer, even if the window accepted the drag, and no child handles it.
int dispatchDrag(int event, Fl_Window* window) {
  const bool drag = event == FL_DND_ENTER || event == FL_DND_DRAG || event == FL_DND_RELEASE;
  Fl_Window* main = appState().mainWindow;
  if (!drag || window == nullptr || window->top_window() != main) {
    return Fl::handle_(event, window);
  }
  if (Fl::modal() != nullptr) return 0;
  Fl::belowmouse(main);  // receives the following events
  return 1;
}

/// Updates its check boxes before it shows them.
class MenuBar : public Fl_Menu_Bar {
 public:
  using Fl_Menu_Bar::Fl_Menu_Bar;
  int handle(int event) override {
    if (event == FL_PUSH || event == FL_SHORTCUT) checkMenuBoxes();
    return Fl_Menu_Bar::handle(event);
  }
};

Fl_Double_Window* makeWindow() {
  auto* window = new MainWindow(kWindowWidth, kWindowHeight, "Morvane Reader Software");
  window->color(kBlack);
  window->callback(confirmQuit);
  window->size_range(kMinWidth, kMinHeight);
  return window;
}

Fl_Menu_Bar* makeMenuBar() {
  auto* menu = new MenuBar(0, 0, kWindowWidth, kMenuHeight);
  menu->box(FL_FLAT_BOX);
  menu->color(kBlack);
  menu->textcolor(kWhite);
  return menu;
}

GLWindow* makeView(AppState& app) {
  constexpr PixelArea area = kFirstLayout.view;
  static_assert(area.w == kTextSpaceWidth && area.h == kTextSpaceHeight);
  auto* view = new GLWindow(area.x, area.y, area.w, area.h, "TestOPGL");
  view->hide();
  view->setExeFolder(app.exeFolder);
  view->onTrouble = [](const std::string& text) { callSoon(tellUser, text); };
  view->onNotShown = showAlertSoon;
  view->onMeasured = showMeasured;
  view->onPointer = [] { appState().readout->update(); };
  view->onDraw = [] { appState().statusLine->release(); };
  return view;
}

FilterWindow* makeFilterWindow() {
  auto* window = new FilterWindow;
  window->onApply = applyFilter;
  window->header = [] { return appState().glView->surface().measurement().header; };
  return window;
}

Fl_Box* makeLogoBox() {
  auto* box = new Fl_Box(kLogoX, kMenuHeight, kFirstLayout.view.w, kFirstLayout.view.h);
  box->image(loadImage("Logos", "CX-Logo-white.png", 1000, 120));
  return box;
}

Fl_Window* makeControlsPanel() {
  constexpr PixelArea area = kFirstLayout.controls;
  auto* panel = new Fl_Window(area.x, area.y, area.w, area.h, "controls");
  panel->color(kBlack);
  buildControls();
  panel->end();
  return panel;
}

Fl_Window* makeConsolePanel(AppState& app) {
  constexpr PixelArea area = kFirstLayout.console;
  constexpr int kTextHeight = kConsoleHeight - kConsoleInputHeight;
  auto* panel = new Fl_Window(area.x, area.y, area.w, area.h, "Console");
  app.consoleText = new Fl_Text_Buffer;
  (new Fl_Text_Display(0, 0, area.w, kTextHeight))->buffer(app.consoleText);
  new Fl_Input(0, kTextHeight, area.w, kConsoleInputHeight);
  panel->end();
  panel->hide();
  return panel;
}

}  // namespace

void buildMainWindow() {
  AppState& app = appState();
  fl_register_images();
  useProgramFont();
  registerButtonBox();
  setIcon();
  loadSparePictures();
  app.mainWindow = makeWindow();
  Fl::event_dispatch(dispatchDrag);
  app.menuBar = makeMenuBar();
  app.glView = makeView(app);
  app.logoBox = makeLogoBox();
  app.controlsPanel = makeControlsPanel();
  app.consolePanel = makeConsolePanel(app);
  app.statusLine = new StatusLine;
  app.readout = new Readout;
  app.resultsPanel = new ResultsPanel(app.exeFolder);
  app.resultsPanel->hide();
  buildMenu();
  app.mainWindow->resizable(app.glView);
  app.mainWindow->end();
  app.mainWindow->hide();
  app.aboutWindow = buildAboutWindow();
  app.filterWindow = makeFilterWindow();
  app.heatMapDialog = buildHeatMapDialog();
  app.lightWindow = buildLightWindow();
  app.configManager = new ConfigManagerWindow;
  for (const std::string& folder : {savedFilesFolder(), screenshotsFolder()}) {
    removeAbandoned(folder);
  }
}

}  // namespace morvane
