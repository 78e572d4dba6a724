#include "tests/e2e/driver/ControlContent.h"

#include <cstring>
#include <utility>

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

#include <oleacc.h>

namespace tarvex {
namespace {

constexpr UINT kAnswerMs = 5000;
constexpr int kLongestText = 1000;
constexpr int kNormalDpi = 96;

/// 0 when there is no answer.
LRESULT Ask(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, kAnswerMs, &answer);
    return static_cast<LRESULT>(answer);
}

/// The same for a handler that may show a dialog: goes on when the message has been taken.
void Deliver(HWND window, UINT message, WPARAM first, LPARAM second) {
    SendNotifyMessageW(window, message, first, second);
    Ask(window, WM_NULL);
}

/// Memory of the other process, which messages of the common controls point to.
class TheirMemory {
public:
    TheirMemory(HANDLE process, std::size_t size)
        : process_(process),
          place_(VirtualAllocEx(process, nullptr, size, MEM_COMMIT, PAGE_READWRITE)) {}
    TheirMemory(const TheirMemory&) = delete;
    TheirMemory& operator=(const TheirMemory&) = delete;
    ~TheirMemory() {
        if (place_ != nullptr) {
            VirtualFreeEx(process_, place_, 0, MEM_RELEASE);
        }
    }

    std::uintptr_t Address() const { return reinterpret_cast<std::uintptr_t>(place_); }
    void* Release() { return std::exchange(place_, nullptr); }

    void Write(const void* data, std::size_t size) const {
        WriteProcessMemory(process_, place_, data, size, nullptr);
    }
    void Read(std::size_t offset, void* data, std::size_t size) const {
        ReadProcessMemory(process_, static_cast<const char*>(place_) + offset, data, size, nullptr);
    }

private:
    HANDLE process_;
    void* place_;
};

std::u16string ItemText(HANDLE process, HWND list, int line, int column) {
    const TheirMemory memory(process, sizeof(LVITEMW) + kLongestText * sizeof(wchar_t));
    LVITEMW item{};
    item.iSubItem = column;
    item.cchTextMax = kLongestText;
    item.pszText = reinterpret_cast<wchar_t*>(memory.Address() + sizeof(LVITEMW));
    memory.Write(&item, sizeof(item));
    const LRESULT length = Ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(line),
                               static_cast<LPARAM>(memory.Address()));
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    memory.Read(sizeof(LVITEMW), text.data(), text.size() * sizeof(wchar_t));
    return std::u16string(FromWide(text));
}

void ReadListView(HANDLE process, HWND list, ControlContent& content) {
    const auto header = reinterpret_cast<HWND>(Ask(list, LVM_GETHEADER));
    const auto columns = static_cast<int>(Ask(header, HDM_GETITEMCOUNT));
    const auto lines = static_cast<int>(Ask(list, LVM_GETITEMCOUNT));
    for (int line = 0; line < lines; ++line) {
        std::vector<std::u16string>& texts = content.items.emplace_back();
        for (int column = 0; column < columns; ++column) {
            texts.push_back(ItemText(process, list, line, column));
        }
    }
    content.selected = static_cast<std::int32_t>(
        Ask(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

/// The messages of drop-down lists and list boxes, which differ in their numbers only.
struct BoxMessages {
    UINT count;
    UINT length;
    UINT text;
    UINT selected;
};
constexpr BoxMessages kCombo = {CB_GETCOUNT, CB_GETLBTEXTLEN, CB_GETLBTEXT, CB_GETCURSEL};
constexpr BoxMessages kListBox = {LB_GETCOUNT, LB_GETTEXTLEN, LB_GETTEXT, LB_GETCURSEL};

const BoxMessages* MessagesOf(const Control& control) {
    if (control.className == u"ComboBox") {
        return &kCombo;
    }
    return control.className == u"ListBox" ? &kListBox : nullptr;
}

void ReadBox(const BoxMessages& box, HWND window, ControlContent& content) {
    const auto lines = static_cast<int>(Ask(window, box.count));
    for (int line = 0; line < lines; ++line) {
        const auto index = static_cast<WPARAM>(line);
        std::wstring text(static_cast<std::size_t>(Ask(window, box.length, index)) + 1, L'\0');
        const LRESULT length = Ask(window, box.text, index, reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(length));
        content.items.push_back({std::u16string(FromWide(text))});
    }
    content.selected = static_cast<std::int32_t>(Ask(window, box.selected));
}

std::u16string AccessibleName(HWND window) {
    std::u16string name;
    const HRESULT ready = CoInitialize(nullptr);
    IAccessible* object = nullptr;
    if (SUCCEEDED(AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                             IID_IAccessible, reinterpret_cast<void**>(&object)))) {
        VARIANT itself{};
        itself.vt = VT_I4;
        BSTR text = nullptr;
        if (object->get_accName(itself, &text) == S_OK && text != nullptr) {
            name = FromWide(std::wstring_view(text, SysStringLen(text)));
        }
        SysFreeString(text);
        object->Release();
    }
    if (SUCCEEDED(ready)) {
        CoUninitialize();
    }
    return name;
}

}  // namespace

ControlContent ReadContent(void* process, const Control& control) {
    ControlContent content;
    if (control.className == u"Button") {
        content.checked = Ask(control.handle, BM_GETCHECK) == BST_CHECKED;
    } else if (control.className == u"SysListView32") {
        ReadListView(process, control.handle, content);
    } else if (const BoxMessages* const box = MessagesOf(control)) {
        ReadBox(*box, control.handle, content);
    }
    content.name = AccessibleName(control.handle);
    return content;
}

bool SelectLine(void* process, const Control& control, std::int32_t line) {
    const auto index = static_cast<WPARAM>(line);
    if (control.className == u"SysListView32") {
        const TheirMemory memory(process, sizeof(LVITEMW));
        LVITEMW item{};
        item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        item.state = item.stateMask;
        memory.Write(&item, sizeof(item));
        return Ask(control.handle, LVM_SETITEMSTATE, index,
                   static_cast<LPARAM>(memory.Address())) != 0;
    }
    const BoxMessages* const box = MessagesOf(control);
    if (box == nullptr) {
        return false;
    }
    const LRESULT before = Ask(control.handle, box->selected);
    if (before < 0 || line >= Ask(control.handle, box->count)) {
        return false;
    }
    // By keys: each chooses a line and tells the window in one. Between a line that is only set and
    // the word of it the window may have shown the old one again.
    for (LRESULT step = before; step != line; step += before < line ? 1 : -1) {
        Deliver(control.handle, WM_KEYDOWN, before < line ? VK_DOWN : VK_UP, 0);
    }
    return true;
}

void DropFile(void* process, WindowHandle window, const std::u16string& file) {
    // The names follow the structure; an empty one is the last.
    std::string block(sizeof(DROPFILES) + (file.size() + 2) * sizeof(char16_t), '\0');
    DROPFILES head{};
    head.pFiles = sizeof(DROPFILES);
    head.fWide = TRUE;
    std::memcpy(block.data(), &head, sizeof(head));
    std::memcpy(block.data() + sizeof(head), file.data(), file.size() * sizeof(char16_t));
    TheirMemory memory(process, block.size());
    memory.Write(block.data(), block.size());
    // The window releases it.
    PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory.Release()), 0);
}

void TellDpi(void* process, WindowHandle window, std::int32_t dpi) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    bounds.right = bounds.left + MulDiv(bounds.right - bounds.left, dpi, kNormalDpi);
    bounds.bottom = bounds.top + MulDiv(bounds.bottom - bounds.top, dpi, kNormalDpi);
    const TheirMemory memory(process, sizeof(bounds));
    memory.Write(&bounds, sizeof(bounds));
    const auto word = static_cast<WORD>(dpi);
    constexpr UINT kDpiChanged = 0x02E0;
    Ask(window, kDpiChanged, MAKEWPARAM(word, word), static_cast<LPARAM>(memory.Address()));
}

}  // namespace tarvex
