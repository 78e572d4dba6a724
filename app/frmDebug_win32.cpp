#include "app/frmDebug.h"

#include <algorithm>

#include "app/DebugFormSize.h"
#include "platform/win32/Dpi.h"
#include "platform/win32/Handles.h"
#include "platform/win32/ModalWindow.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "resources/ResourceIds.h"
#include "text/Text.h"
#include "util/QvFileDialog.h"

namespace tarvex {

namespace {

using UniqueFont = UniqueHandle<HFONT, DeleteObject>;

constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, from Windows 8.1 on
constexpr int kPointSize = 10;
constexpr std::size_t kLengthInBox = 1500;
constexpr int kTextMargin = 6;    // at kNormalDpi
constexpr int kNoticeMargin = 3;  // at kNormalDpi, above and below

UniqueFont FixedFont(int dpi) {
    return UniqueFont(CreateFontW(-MulDiv(kPointSize, dpi, 72), 0, 0, 0, FW_NORMAL, FALSE, FALSE,
                                  FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                                  DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, L"Courier New"));
}

UniqueFont NoticeFont(int dpi) {
    const LOGFONTW font = MessageFont(dpi);
    return UniqueFont(CreateFontIndirectW(&font));
}

/// A character of the font, on average.
PixelSize CellOf(const UniqueFont& font) {
    const WindowDc screen(nullptr);
    const HGDIOBJ before = SelectObject(screen.Get(), font.Get());
    TEXTMETRICW metrics{};
    GetTextMetricsW(screen.Get(), &metrics);
    SelectObject(screen.Get(), before);
    return {static_cast<int>(metrics.tmAveCharWidth), static_cast<int>(metrics.tmHeight)};
}

PixelSize SizeOf(const RECT& rect) {
    return {static_cast<int>(rect.right - rect.left), static_cast<int>(rect.bottom - rect.top)};
}

/// What the window has around its inner area.
PixelSize AroundInnerArea(HWND window) {
    RECT outer{};
    RECT inner{};
    GetWindowRect(window, &outer);
    GetClientRect(window, &inner);
    const PixelSize whole = SizeOf(outer);
    return {static_cast<int>(whole.width - inner.right),
            static_cast<int>(whole.height - inner.bottom)};
}

class DebugForm : public ModalWindow {
public:
    DebugForm(const DebugWindow& content, const DebugServices& services)
        : content_(content), services_(services), text_(content.text) {
        // The edit control takes a zero for the end of the text.
        std::replace(text_.begin(), text_.end(), u'\0', u' ');
    }

    void ShowModal() {
        PrepareCommonControls();
        const HINSTANCE program = GetModuleHandleW(nullptr);
        const RECT area = WorkAreaAtPointer();
        const HMENU menu = LoadMenuW(program, MAKEINTRESOURCEW(IDR_DEBUG));
        // First as large as its screen: only there can its parts be measured as they will show.
        if (Create({L"frmDebug", Wide(content_.caption), WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                    area, menu})) {
            SetBounds(Centred(StartSize(area), area));
            RunUntilClosed(LoadAcceleratorsW(program, MAKEINTRESOURCEW(IDR_DEBUG)));
            return;
        }
        if (menu != nullptr) {
            DestroyMenu(menu);
        }
        // The system is out of windows; its own box may still find room for the beginning.
        services_.ui.ShowMessageBox({std::u16string(text::Left(text_, kLengthInBox)),
                                     content_.caption,
                                     MB_ICONSTOP,
                                     {},
                                     -1});
    }

protected:
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override {
        switch (message) {
            case WM_CREATE:
                return CreateControls() ? 0 : -1;
            case WM_SIZE:
                PlaceControls();
                return 0;
            case WM_SETFOCUS:
                SetFocus(edit_);
                return 0;
            case WM_ERASEBKGND:
                PaintMargin(reinterpret_cast<HDC>(first));
                return TRUE;
            case WM_CTLCOLORSTATIC:
                return reinterpret_cast<LRESULT>(
                    Background(reinterpret_cast<HDC>(first), reinterpret_cast<HWND>(second)));
            case WM_COMMAND:
                return OnCommand(LOWORD(first)) ? 0
                                                : ModalWindow::OnMessage(message, first, second);
            case WM_HELP:
                services_.help();
                return TRUE;
            case kDpiChanged:
                OnDpiChanged(LOWORD(first), *reinterpret_cast<const RECT*>(second));
                return 0;
            default:
                return ModalWindow::OnMessage(message, first, second);
        }
    }

private:
    bool CreateControls() {
        // Hidden, but a screen reader takes it for the name of the control after it.
        CreateControl(L"STATIC", L"Diagnosetext", 0, 0);
        edit_ = CreateControl(L"EDIT", L"",
                              WS_VISIBLE | WS_HSCROLL | WS_VSCROLL | ES_MULTILINE | ES_READONLY |
                                  ES_AUTOHSCROLL | ES_AUTOVSCROLL | ES_NOHIDESEL,
                              IDC_TXTDEBUG);
        notice_ =
            CreateControl(L"STATIC", L"", SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX | SS_ENDELLIPSIS,
                          IDC_DEBUG_NOTICE);
        if (edit_ == nullptr || notice_ == nullptr) {
            return false;
        }
        SetFonts(WindowDpi(Window()));
        PlaceControls();
        SendMessageW(edit_, EM_SETLIMITTEXT, 0, 0);
        SetWindowTextW(edit_, Wide(text_));
        SendMessageW(edit_, EM_SETSEL, 0, 0);
        SetWindowContextHelpId(Window(), static_cast<DWORD>(content_.helpContext));
        return true;
    }

    HWND CreateControl(const wchar_t* className, const wchar_t* text, DWORD style, int id) {
        return CreateWindowExW(0, className, text, style | WS_CHILD, 0, 0, 0, 0, Window(),
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                               GetModuleHandleW(nullptr), nullptr);
    }

    void SetFonts(int dpi) {
        // A control uses its font until it has got another one, so the old ones go last.
        UniqueFont editFont = FixedFont(dpi);
        UniqueFont noticeFont = NoticeFont(dpi);
        SendMessageW(edit_, WM_SETFONT, reinterpret_cast<WPARAM>(editFont.Get()), TRUE);
        SendMessageW(notice_, WM_SETFONT, reinterpret_cast<WPARAM>(noticeFont.Get()), TRUE);
        editFont_ = std::move(editFont);
        noticeFont_ = std::move(noticeFont);
        dpi_ = dpi;
    }

    void OnDpiChanged(int dpi, const RECT& bounds) {
        SetFonts(dpi);
        SetBounds(bounds);
        PlaceControls();
    }

    void SetBounds(const RECT& bounds) {
        const PixelSize size = SizeOf(bounds);
        SetWindowPos(Window(), nullptr, bounds.left, bounds.top, size.width, size.height,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }

    SIZE StartSize(const RECT& area) const {
        const PixelSize size =
            DebugFormSize({AroundInnerArea(Window()), AroundInnerArea(edit_), CellOf(editFont_),
                           Scaled(kTextMargin, dpi_), SizeOf(area)});
        return {size.width, size.height};
    }

    void PlaceControls() {
        RECT inner{};
        GetClientRect(Window(), &inner);
        const bool hasNotice = (GetWindowLongW(notice_, GWL_STYLE) & WS_VISIBLE) != 0;
        const int noticeHeight =
            hasNotice ? std::min<int>(CellOf(noticeFont_).height + 2 * Scaled(kNoticeMargin, dpi_),
                                      inner.bottom)
                      : 0;
        const int editHeight = inner.bottom - noticeHeight;
        MoveWindow(edit_, 0, 0, inner.right, editHeight, TRUE);
        SetTextMargin();
        const int margin = Scaled(kTextMargin, dpi_);
        MoveWindow(notice_, margin, editHeight, inner.right - margin, noticeHeight, TRUE);
    }

    // A change of its size takes the control's margin away, one of its font sets others.
    void SetTextMargin() const {
        SendMessageW(edit_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
        RECT text{};
        GetClientRect(edit_, &text);
        const int margin = Scaled(kTextMargin, dpi_);
        text.left += margin;
        text.top += margin;
        text.right -= margin;
        text.bottom -= margin;
        SendMessageW(edit_, EM_SETRECT, 0, reinterpret_cast<LPARAM>(&text));
    }

    // Nothing of the window itself is seen but the margin left of the notice.
    void PaintMargin(HDC dc) const {
        RECT inner{};
        GetClientRect(Window(), &inner);
        FillRect(dc, &inner, GetSysColorBrush(COLOR_INFOBK));
    }

    HBRUSH Background(HDC dc, HWND control) const {
        const bool isNotice = control == notice_;
        const int background = isNotice ? COLOR_INFOBK : COLOR_WINDOW;
        SetTextColor(dc, GetSysColor(isNotice ? COLOR_INFOTEXT : COLOR_WINDOWTEXT));
        SetBkColor(dc, GetSysColor(background));
        return GetSysColorBrush(background);
    }

    bool OnCommand(int id) {
        switch (id) {
            case ID_DEBUG_SAVE:
                Save();
                return true;
            case ID_DEBUG_CLOSE:
                Close();
                return true;
            case ID_DEBUG_SELECTALL:
                SendMessageW(edit_, EM_SETSEL, 0, -1);
                return true;
            default:
                return false;
        }
    }

    void Save() {
        ShowNotice({});
        FileDialogOptions options;
        options.title = content_.saveTitle;
        options.startFolder = content_.saveFolder;
        options.filter = content_.saveFilter;
        options.defaultName = ProposedName();
        options.defaultExtension = u"err";
        options.owner = Window();
        const std::u16string path = QvFileDialog(services_.dialogs, services_.ansi, services_.ui)
                                        .GetSaveFileName(options)
                                        .path;
        if (!path.empty() && !services_.files.Write(path, services_.ansi.ToAnsi(text_), true)) {
            ShowNotice(u"Speichern fehlgeschlagen: " + path);
        }
    }

    // The dialog refuses to open with a name that holds a "?", which stands for every character
    // outside the code page.
    std::u16string ProposedName() const {
        std::u16string name = services_.ansi.FromAnsi(services_.ansi.ToAnsi(content_.saveName));
        std::replace(name.begin(), name.end(), u'?', u'_');
        return name;
    }

    void ShowNotice(const std::u16string& text) {
        SetWindowTextW(notice_, Wide(text));
        ShowWindow(notice_, text.empty() ? SW_HIDE : SW_SHOWNA);
        PlaceControls();
    }

    const DebugWindow& content_;
    const DebugServices& services_;
    std::u16string text_;
    HWND edit_ = nullptr;
    HWND notice_ = nullptr;
    UniqueFont editFont_;
    UniqueFont noticeFont_;
    int dpi_ = kNormalDpi;
};

}  // namespace

void frmDebug::ShowModal(const DebugWindow& content, const DebugServices& services) {
    DebugForm(content, services).ShowModal();
}

}  // namespace tarvex
