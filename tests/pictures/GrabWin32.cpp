#include "Grab.h"

#include <fstream>
#include <vector>
#include <windows.h>

namespace {

template <typename T>
void Put(std::ofstream& stream, const T& value) {
    stream.write(reinterpret_cast<const char*>(&value), sizeof value);
}

/// The pixels of a window with its border, from the top down.
std::vector<DWORD> PixelsOf(HWND window, const BITMAPINFO& format) {
    const LONG width = format.bmiHeader.biWidth;
    const LONG height = -format.bmiHeader.biHeight;
    const HDC screen = GetWindowDC(window);
    const HDC memory = CreateCompatibleDC(screen);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(memory, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, screen, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* first = static_cast<const DWORD*>(bits);
    const std::vector<DWORD> pixels(first, first + width * height);
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(window, screen);
    return pixels;
}

BITMAPINFO FormatOf(HWND window) {
    RECT place = {};
    GetWindowRect(window, &place);
    BITMAPINFO format = {};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = place.right - place.left;
    format.bmiHeader.biHeight = place.top - place.bottom;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    return format;
}

}  // namespace

bool GrabDialog(const std::string& file) {
    const HWND window = GetActiveWindow();
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    const BITMAPINFO format = FormatOf(window);
    const std::vector<DWORD> pixels = PixelsOf(window, format);
    const auto size = static_cast<DWORD>(pixels.size() * sizeof pixels[0]);
    std::ofstream stream(file + ".bmp", std::ios::binary);
    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;  // "BM"
    header.bfOffBits = sizeof header + sizeof format.bmiHeader;
    header.bfSize = header.bfOffBits + size;
    Put(stream, header);
    Put(stream, format.bmiHeader);
    stream.write(reinterpret_cast<const char*>(pixels.data()), size);
    return stream.good();
}
