#include "window/views/MainWindow_win32.h"

#include <algorithm>
#include <stdexcept>
#include <utility>
#include <vector>

#include "platform/win32/Dpi.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "window/formviews/ChildControl_win32.h"
#include "window/main/KeptState.h"
#include "window/pages/Pages.h"

namespace tarvex {

namespace {

constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, from Windows 8.1 on
constexpr UINT kPreviewDone = WM_APP + 1;
constexpr UINT_PTR kTimer = 1;
constexpr UINT kTick = 100;  // ms
constexpr int kStatusId = 409;

// At kNormalDpi.
constexpr SIZE kStartSize = {800, 560};
constexpr SIZE kLeastSize = {640, 440};
constexpr int kPagesWidth = 150;
constexpr int kGap = 6;
constexpr int kSearchBorder = 4;  // above and below its text
constexpr int kSplitterHeight = 6;
constexpr int kLeastPane = 90;
constexpr int kLeastPage = 160;

BOOL CALLBACK AddWorkArea(HMONITOR monitor, HDC, LPRECT, LPARAM areas) {
    MONITORINFO information{};
    information.cbSize = sizeof(information);
    if (GetMonitorInfoW(monitor, &information) != FALSE) {
        const RECT& work = information.rcWork;
        reinterpret_cast<std::vector<ScreenArea>*>(areas)->push_back(
            {work.left, work.top, work.right, work.bottom});
    }
    return TRUE;
}

/// Of all screens; at least one.
std::vector<ScreenArea> WorkAreas() {
    std::vector<ScreenArea> areas;
    EnumDisplayMonitors(nullptr, nullptr, AddWorkArea, reinterpret_cast<LPARAM>(&areas));
    if (areas.empty()) {
        const RECT area = WorkAreaAtPointer();
        areas.push_back({area.left, area.top, area.right, area.bottom});
    }
    return areas;
}

SIZE SizeOf(const RECT& rect) {
    return {rect.right - rect.left, rect.bottom - rect.top};
}

/// At kNormalDpi: nothing shall move aside when another page is chosen.
int CommonLabelColumn(const FormFonts& fonts) {
    int column = 0;
    for (const Page& page : Pages()) {
        column = std::max(column, LabelColumn(page.rows, fonts, fonts.Scaled(kStartSize.cx)));
    }
    return MulDiv(column, kNormalDpi, fonts.Dpi());
}

}  // namespace

/// Does something with the model and shows what came of it. A failure is told, and the window goes
/// on: it may hold what the user has not saved yet.
template <class Action>
void MainWindow::Do(const Action& action) {
    try {
        action();
    } catch (...) {
        model_.TellFailure();
    }
    Refresh();
}

bool MainWindow::Make() {
    PrepareListsAndBars();
    dpi_ = SystemDpi();
    const std::optional<WindowPlace> place = KeptState(settings_).Place();
    startsMaximised_ = place && place->maximised;
    const HMENU menu = CreateMenuBar();
    if (!Create({L"TarvexMain", Wide(model_.Title()), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                 StartPlace(place), menu, nullptr, WS_EX_ACCEPTFILES})) {
        DestroyMenu(menu);
        return false;
    }
    shortcuts_ = CreateShortcuts();
    return true;
}

void MainWindow::Run(const std::u16string& file) {
    ShowInFront();
    if (startsMaximised_) {
        ShowWindow(Window(), SW_SHOWMAXIMIZED);
    }
    if (!file.empty()) {
        Do([this, &file] { model_.Open(file); });
    }
    MSG message;
    while (Window() != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (Window() == nullptr || !Translate(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    RaiseFailure();
}

RECT MainWindow::StartPlace(const std::optional<WindowPlace>& kept) const {
    const RECT area = WorkAreaAtPointer();
    if (kept) {
        const ScreenArea& back = BroughtBack(kept->area, WorkAreas());
        return {back.left, back.top, back.right, back.bottom};
    }
    const SIZE most = SizeOf(area);
    return Centred({std::min<LONG>(Scaled(kStartSize.cx, dpi_), most.cx),
                    std::min<LONG>(Scaled(kStartSize.cy, dpi_), most.cy)},
                   area);
}

void MainWindow::KeepPlace() {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof(placement);
    if (GetWindowPlacement(Window(), &placement) != FALSE) {
        // Its area is counted from the corner of the work area.
        MONITORINFO monitor{};
        monitor.cbSize = sizeof(monitor);
        GetMonitorInfoW(MonitorFromWindow(Window(), MONITOR_DEFAULTTONEAREST), &monitor);
        RECT area = placement.rcNormalPosition;
        OffsetRect(&area, static_cast<int>(monitor.rcWork.left - monitor.rcMonitor.left),
                   static_cast<int>(monitor.rcWork.top - monitor.rcMonitor.top));
        KeptState(settings_).SetPlace({{area.left, area.top, area.right, area.bottom},
                                       placement.showCmd == SW_SHOWMAXIMIZED});
    }
    model_.KeepState();
}

bool MainWindow::Translate(MSG& message) {
    return search_.OnKey(message) ||
           TranslateAcceleratorW(Window(), shortcuts_.Get(), &message) != 0 ||
           (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && OnEnter()) ||
           IsDialogMessageW(Window(), &message) != FALSE;
}

bool MainWindow::OnEnter() {
    const HWND focus = GetFocus();
    if (focus == pages_.Control()) {
        form_.FocusFirst();
        return true;
    }
    return pane_.Contains(focus) && pane_.OnEnter(focus);
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    if (focus_.OnMessage(Window(), message, first, second)) {
        return 0;
    }
    switch (message) {
        case WM_CREATE:
            return CreateControls() ? 0 : -1;
        case WM_SIZE:
            SendMessageW(status_, WM_SIZE, 0, 0);
            PlaceControls();
            return 0;
        case WM_GETMINMAXINFO: {
            POINT& least = reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize;
            least = {Scaled(kLeastSize.cx, dpi_), Scaled(kLeastSize.cy, dpi_)};
            return 0;
        }
        case WM_SETFOCUS:
            form_.FocusFirst();
            return 0;
        case WM_COMMAND:
            OnCommand(LOWORD(first), HIWORD(first));
            return 0;
        case WM_NOTIFY:
            pane_.OnNotify(*reinterpret_cast<const NMHDR*>(second));
            return 0;
        case WM_INITMENUPOPUP:
            UpdateMenuBar(GetMenu(Window()),
                          {[this](Command command) { return model_.IsEnabled(command); },
                           [this](Command command) { return model_.IsChecked(command); },
                           model_.RecentFiles()});
            return 0;
        case WM_DRAWITEM:
            pages_.Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
            return TRUE;
        case WM_ERASEBKGND:
            return PaintBackground(reinterpret_cast<HDC>(first));
        case WM_CTLCOLORSTATIC:
            if (const HBRUSH brush =
                    pane_.OnColor(reinterpret_cast<HDC>(first), reinterpret_cast<HWND>(second))) {
                return reinterpret_cast<LRESULT>(brush);
            }
            return ModalWindow::OnMessage(message, first, second);
        case WM_TIMER:
            OnTick();
            return 0;
        case kPreviewDone:
            OnPreviewDone();
            return 0;
        case WM_DROPFILES:
            OnDrop(reinterpret_cast<HDROP>(first));
            return 0;
        case WM_SETCURSOR:
        case WM_LBUTTONDOWN:
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED:
            if (OnSplitter(message, first, second)) {
                return TRUE;
            }
            return ModalWindow::OnMessage(message, first, second);
        case WM_HELP:
            Perform(Command::PageHelp);
            return TRUE;
        case kDpiChanged:
            OnDpiChanged(LOWORD(first), *reinterpret_cast<const RECT*>(second));
            return 0;
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
            SetFonts(dpi_);
            PlaceControls();
            return 0;
        case WM_QUERYENDSESSION:
            return MayClose() ? TRUE : FALSE;
        case WM_CLOSE:
            if (MayClose()) {
                KeepPlace();
                Close();
            }
            return 0;
        default:
            return ModalWindow::OnMessage(message, first, second);
    }
}

bool MainWindow::CreateControls() {
    const HWND window = Window();
    form_.onChanged = [this] { Refresh(); };
    form_.onFailure = [this](std::exception_ptr failure) {
        Do([&failure] { std::rethrow_exception(failure); });
    };
    if (!form_.Create(window, dpi_, true)) {
        return false;
    }
    status_ =
        CreateChild(window, L"msctls_statusbar32", u"", WS_VISIBLE | SBARS_SIZEGRIP, kStatusId);
    SetFonts(WindowDpi(window));
    // A window that is shown by its place in the stack hears of its size only when that changes.
    PlaceControls();
    Refresh();
    return status_ != nullptr;
}

/// What the start page does without: the window shows sooner.
void MainWindow::CreateDocumentParts() {
    const HWND window = Window();
    hasDocumentParts_ =
        toolBar_.Create(window) &&
        search_.Create(window,
                       {[this](const std::u16string& text) { return model_.Find(text); },
                        [this](std::size_t hit) { Do([this, hit] { model_.GoToHit(hit); }); }}) &&
        pages_.Create(window) &&
        // Tab goes from control to control in this order.
        SetWindowPos(form_.Window(), HWND_BOTTOM, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE) != FALSE &&
        pane_.Create(window, {[this](std::int32_t pc) { Do([this, pc] { model_.ChoosePc(pc); }); },
                              [this] { Do([this] { model_.ToggleFindings(); }); },
                              [this](std::size_t finding) {
                                  Do([this, finding] { model_.GoToFinding(finding); });
                              }});
    if (!hasDocumentParts_) {
        throw std::runtime_error("no more windows");
    }
    worker_.emplace(window, kPreviewDone, RunSystemPreview);
    SetDocumentFonts(*fonts_);
    SetTimer(window, kTimer, kTick, nullptr);
}

void MainWindow::SetFonts(int dpi) {
    dpi_ = dpi;
    auto fonts = std::make_unique<FormFonts>(dpi);
    const HFONT normal = fonts->Font(FormFont::Normal);
    if (hasDocumentParts_) {
        SetDocumentFonts(*fonts);
    }
    SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(normal), TRUE);
    SendMessageW(status_, WM_SIZE, 0, 0);
    form_.SetDpi(dpi);
    // A control uses its font until it has got another one, so the old ones go last.
    fonts_ = std::move(fonts);
}

void MainWindow::SetDocumentFonts(const FormFonts& fonts) {
    const HFONT normal = fonts.Font(FormFont::Normal);
    toolBar_.SetFonts(fonts);
    search_.SetFont(normal, fonts.Dpi());
    pages_.SetFont(normal, fonts.Dpi());
    pane_.SetFonts(normal, fonts.Font(FormFont::Fixed));
    labelColumn_ = CommonLabelColumn(fonts);
}

int MainWindow::AreaBelowPages() const {
    RECT inner{};
    GetClientRect(Window(), &inner);
    RECT status{};
    GetWindowRect(status_, &status);
    return static_cast<int>(inner.bottom - SizeOf(status).cy);
}

void MainWindow::PlaceControls() {
    RECT inner{};
    GetClientRect(Window(), &inner);
    const auto width = static_cast<int>(inner.right);
    const int bottom = AreaBelowPages();
    if (hasDocumentParts_) {
        const int barHeight = PlaceBars(width);
        const int pagesWidth = Scaled(kPagesWidth, dpi_);
        const int splitterHeight = Scaled(kSplitterHeight, dpi_);
        const int paneTop = bottom - PaneHeight(bottom - barHeight);
        const int pageHeight = std::max(paneTop - splitterHeight - barHeight, 0);
        MoveWindow(pages_.Control(), 0, barHeight, pagesWidth, pageHeight, TRUE);
        MoveWindow(form_.Window(), pagesWidth, barHeight, width - pagesWidth, pageHeight, TRUE);
        splitter_.Place(
            model_.IsPreviewFolded() ? RECT{} : RECT{0, paneTop - splitterHeight, width, paneTop});
        pane_.Place({0, paneTop, width, bottom}, dpi_);
    } else {
        MoveWindow(form_.Window(), 0, 0, width, bottom, TRUE);
    }
    RedrawWindow(Window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

/// Tool bar and search box, on one line. Returns the height that they take.
int MainWindow::PlaceBars(int width) {
    const int gap = Scaled(kGap, dpi_);
    const SIZE tools = toolBar_.Size();
    const int searchHeight = fonts_->LineHeight(FormFont::Normal) + Scaled(2 * kSearchBorder, dpi_);
    const int height = std::max(static_cast<int>(tools.cy), searchHeight) + gap;
    const int toolsTop = (height - static_cast<int>(tools.cy)) / 2;
    toolBar_.Place({gap, toolsTop, gap + tools.cx, toolsTop + tools.cy});
    const int searchTop = (height - searchHeight) / 2;
    search_.Place({gap + tools.cx, searchTop, width - gap, searchTop + searchHeight});
    return height;
}

int MainWindow::PaneHeight(int available) const {
    if (model_.IsPreviewFolded()) {
        return pane_.FoldedHeight(dpi_);
    }
    const int least = Scaled(kLeastPane, dpi_);
    return std::clamp(Scaled(model_.PreviewHeight(), dpi_), least,
                      std::max(least, available - Scaled(kLeastPage, dpi_)));
}

/// The lines between the parts; everything else is covered by controls.
LRESULT MainWindow::PaintBackground(HDC dc) const {
    RECT inner{};
    GetClientRect(Window(), &inner);
    FillRect(dc, &inner, GetSysColorBrush(COLOR_BTNFACE));
    return TRUE;
}

void MainWindow::Refresh() {
    if (std::u16string title = model_.Title(); title != shownTitle_) {
        SetWindowTextW(Window(), Wide(title));
        shownTitle_ = std::move(title);
    }
    if (model_.Status() != shownStatus_) {
        shownStatus_ = model_.Status();
        SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(Wide(shownStatus_)));
    }
    const bool isNew = model_.HasDocument() && !hasDocumentParts_;
    if (isNew) {
        CreateDocumentParts();
    }
    if (&model_.Form() != shownForm_) {
        shownForm_ = &model_.Form();
        form_.SetLabelColumn(model_.HasDocument() ? labelColumn_ : 0);
        form_.SetModel(shownForm_);
    } else {
        form_.Refresh();
    }
    if (hasDocumentParts_) {
        toolBar_.Enable([this](Command command) { return model_.IsEnabled(command); });
        pages_.Show(model_.PageLines(), static_cast<int>(model_.CurrentPage()));
        pane_.Show(model_.Pane());
        if (isNew || model_.IsPreviewFolded() != shownFolded_) {
            shownFolded_ = model_.IsPreviewFolded();
            pane_.SetFolded(shownFolded_);
            PlaceControls();
        }
    }
    if (const std::optional<Destination> destination = model_.TakeDestination()) {
        GoTo(*destination);
    }
}

void MainWindow::GoTo(const Destination& destination) {
    if (destination.findings) {
        pane_.FocusFindings();
    } else if (destination.row != 0) {
        form_.FocusRow(destination.row);
    } else {
        form_.FocusFirst();
    }
}

void MainWindow::OnCommand(int id, int notification) {
    if (id >= kCommandIds && id < kRecentIds) {
        Perform(static_cast<Command>(id - kCommandIds));
    } else if (id >= kRecentIds && id < kRecentIdsEnd) {
        Do([this, id] { model_.OpenRecent(static_cast<std::size_t>(id - kRecentIds)); });
    } else if (id == kPageListId && notification == LBN_SELCHANGE) {
        Do([this] { model_.SelectPage(static_cast<std::size_t>(pages_.Selected())); });
    } else if (!search_.OnCommand(id, notification)) {
        pane_.OnCommand(id, notification);
    }
}

void MainWindow::Perform(Command command) {
    switch (command) {
        case Command::Search:
            search_.Focus();
            return;
        case Command::NextArea:
        case Command::PreviousArea:
            MoveFocus(command == Command::NextArea);
            return;
        case Command::Undo:
            if (IsChild(form_.Window(), GetFocus()) != FALSE) {
                form_.Undo();
            } else {
                SendMessageW(GetFocus(), EM_UNDO, 0, 0);
            }
            return;
        case Command::Exit:
            PostMessageW(Window(), WM_CLOSE, 0, 0);
            return;
        default:
            Do([this, command] { model_.Run(command, form_.FocusedRow()); });
    }
}

/// From the list of pages to the page, to the preview, and around.
void MainWindow::MoveFocus(bool forward) {
    if (!model_.HasDocument()) {
        form_.FocusFirst();
        return;
    }
    const HWND focus = GetFocus();
    int area = 0;
    if (IsChild(form_.Window(), focus) != FALSE) {
        area = 1;
    } else if (pane_.Contains(focus)) {
        area = 2;
    }
    switch ((area + (forward ? 1 : 2)) % 3) {
        case 0:
            SetFocus(pages_.Control());
            break;
        case 1:
            form_.FocusFirst();
            break;
        default:
            SetFocus(pane_.First());
    }
}

void MainWindow::OnTick() {
    if (const std::optional<WantedPreview> wanted = model_.TakeWantedPreview()) {
        if (wanted->atOnce) {
            worker_->RequestAtOnce(wanted->request);
        } else {
            worker_->Request(wanted->request);
        }
    }
    if (model_.SetPreviewState(worker_->IsOld(), worker_->IsStuck())) {
        pane_.Show(model_.Pane());
    }
}

void MainWindow::OnPreviewDone() {
    if (std::optional<PreviewResult> result = worker_->TakeResult()) {
        Do([this, &result] { model_.SetPreview(std::move(*result)); });
    }
}

void MainWindow::OnDrop(HDROP drop) {
    const SystemLibrary shell(u"shell32.dll");
    auto* const query = shell.Function<decltype(DragQueryFileW)>("DragQueryFileW");
    auto* const finish = shell.Function<decltype(DragFinish)>("DragFinish");
    if (query == nullptr || finish == nullptr) {
        return;
    }
    const std::u16string path = ReadGrowing([drop, query](wchar_t* buffer, unsigned long size) {
        const unsigned long length = query(drop, 0, buffer, size);
        return GrowingRead{length, length + 1 >= size};
    });
    finish(drop);
    SetForegroundWindow(Window());
    Do([this, &path] { model_.Open(path); });
}

bool MainWindow::MayClose() {
    bool may = true;
    Do([this, &may] { may = model_.MayClose(); });
    return may;
}

void MainWindow::OnDpiChanged(int dpi, const RECT& bounds) {
    SetFonts(dpi);
    SetWindowPos(Window(), nullptr, bounds.left, bounds.top, static_cast<int>(SizeOf(bounds).cx),
                 static_cast<int>(SizeOf(bounds).cy), SWP_NOZORDER | SWP_NOACTIVATE);
    PlaceControls();
}

bool MainWindow::OnSplitter(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_SETCURSOR:
            return splitter_.ShowPointer(Window(), first, second);
        case WM_LBUTTONDOWN:
            return splitter_.Begin(Window(), second);
        case WM_MOUSEMOVE:
            if (splitter_.IsDragged()) {
                const int below = AreaBelowPages() - splitter_.Top(second);
                model_.SetPreviewHeight(
                    MulDiv(below - Scaled(kSplitterHeight, dpi_), kNormalDpi, dpi_));
                PlaceControls();
            }
            return splitter_.IsDragged();
        default:
            splitter_.End();
            return false;
    }
}

}  // namespace tarvex
