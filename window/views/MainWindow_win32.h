#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/win32/Dpi.h"
#include "platform/win32/ModalWindow.h"
#include "window/formviews/DialogFocus_win32.h"
#include "window/formviews/FormFonts_win32.h"
#include "window/formviews/FormView_win32.h"
#include "window/main/MainModel.h"
#include "window/main/UserSettings.h"
#include "window/main/WindowPlace.h"
#include "window/views/MenuBar_win32.h"
#include "window/views/PageList_win32.h"
#include "window/views/PreviewPane_win32.h"
#include "window/views/PreviewWorker_win32.h"
#include "window/views/SearchBox_win32.h"
#include "window/views/Splitter_win32.h"
#include "window/views/ToolBar_win32.h"

namespace tarvex {

/// The window of the configurator: shows a MainModel and hands on what the user does.
class MainWindow : public ModalWindow {
public:
    /// Model and settings outlive the window; the settings keep its place.
    MainWindow(MainModel& model, UserSettings& settings) : model_(model), settings_(settings) {}

    /// Makes the window, hidden. False when the system refuses.
    bool Make();

    /// Shows it until it is closed, and opens the file first when there is one. Raises what a
    /// handler raised.
    void Run(const std::u16string& file);

protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

private:
    bool CreateControls();
    void CreateDocumentParts();
    RECT StartPlace(const std::optional<WindowPlace>& kept) const;
    void KeepPlace();
    void SetFonts(int dpi);
    void SetDocumentFonts(const FormFonts& fonts);
    void PlaceControls();
    int PlaceBars(int width);
    int AreaBelowPages() const;
    int PaneHeight(int available) const;
    LRESULT PaintBackground(HDC dc) const;

    template <class Action>
    void Do(const Action& action);
    void Refresh();
    void GoTo(const Destination& destination);

    bool Translate(MSG& message);
    bool OnEnter();
    void OnCommand(int id, int notification);
    void Perform(Command command);
    void MoveFocus(bool forward);
    void OnTick();
    void OnPreviewDone();
    void OnDrop(HDROP drop);
    void OnDpiChanged(int dpi, const RECT& bounds);
    bool OnSplitter(UINT message, WPARAM first, LPARAM second);
    bool MayClose();

    MainModel& model_;
    UserSettings& settings_;
    std::unique_ptr<FormFonts> fonts_;
    UniqueAccelerators shortcuts_;
    ToolBar toolBar_;
    SearchBox search_;
    PageList pages_;
    FormView form_;
    PreviewPane pane_;
    Splitter splitter_;
    DialogFocus focus_;
    HWND status_ = nullptr;
    std::optional<PreviewWorker> worker_;

    int dpi_ = kNormalDpi;
    int labelColumn_ = 0;  // at kNormalDpi
    bool startsMaximised_ = false;
    std::u16string shownTitle_;
    std::u16string shownStatus_;
    FormModel* shownForm_ = nullptr;
    bool shownFolded_ = false;
    bool hasDocumentParts_ = false;
};

}  // namespace tarvex
