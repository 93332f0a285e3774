#include "uHiddenWindow.h"

namespace murala
{

TWindow NewHiddenWindow(const char* className, WNDPROC onMessage, void* data)
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = onMessage;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = className;
    RegisterClassA(&windowClass);
    TWindow window(CreateWindowExA(WS_EX_TOOLWINDOW, className, "", WS_POPUP, 0, 0, 0, 0, nullptr,
                                   nullptr, windowClass.hInstance, nullptr));
    if (window)
        SetWindowLongPtrA(window.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(data));
    return window;
}

} // namespace murala
