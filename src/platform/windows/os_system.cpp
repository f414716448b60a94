// The running program and the system under it, on Windows: process, executable, the version the
// kernel reports (not the one a compatibility layer pretends), and the user's locale.
#include <cstdio>
#include <fcntl.h>
#include <io.h>

#include "platform/os.h"
#include "platform/windows/win_support.h"

namespace hlyd::os {

namespace {

std::string localeText(LCTYPE item) {
    char buffer[256];
    int length = GetLocaleInfoA(LOCALE_USER_DEFAULT, item, buffer, sizeof buffer);
    return length > 1 ? std::string(buffer, static_cast<std::size_t>(length - 1)) : std::string();
}

std::string machineName() {
    SYSTEM_INFO info{};
    GetNativeSystemInfo(&info);
    switch (info.wProcessorArchitecture) {
        case PROCESSOR_ARCHITECTURE_AMD64: return "x86_64";
        case PROCESSOR_ARCHITECTURE_INTEL: return "x86";
        case PROCESSOR_ARCHITECTURE_ARM64: return "arm64";
        default: return "unknown";
    }
}

}  // namespace

std::string systemDirectory() {
    char buffer[MAX_PATH + 1];
    UINT length = GetWindowsDirectoryA(buffer, sizeof buffer);
    return length == 0 || length > MAX_PATH ? std::string("C:\\Windows") : std::string(buffer, length);
}

long processId() { return static_cast<long>(GetCurrentProcessId()); }

std::string executablePath() {
    char buffer[MAX_PATH * 2];
    DWORD length = GetModuleFileNameA(nullptr, buffer, sizeof buffer);
    return length == 0 || length >= sizeof buffer ? std::string() : std::string(buffer, length);
}

SystemVersion systemVersion() {
    using RtlGetVersionCall = LONG(WINAPI*)(OSVERSIONINFOW*);
    OSVERSIONINFOW v{};
    v.dwOSVersionInfoSize = sizeof v;
    HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    auto call =
            ntdll ? reinterpret_cast<RtlGetVersionCall>(reinterpret_cast<void*>(GetProcAddress(ntdll, "RtlGetVersion")))
                  : nullptr;
    if (!call || call(&v) != 0) return {"Windows NT", "", "", machineName()};
    return {"Windows NT", std::to_string(v.dwMajorVersion) + "." + std::to_string(v.dwMinorVersion),
            std::to_string(v.dwBuildNumber & 0xFFFF), machineName()};
}

LocaleFacts userLocale() {
    LocaleFacts facts;
    facts.decimalSeparator = localeText(LOCALE_SDECIMAL);
    facts.groupSeparator = localeText(LOCALE_SMONTHOUSANDSEP);
    facts.metric = localeText(LOCALE_IMEASURE) == "0";
    facts.am = localeText(LOCALE_S1159);
    facts.pm = localeText(LOCALE_S2359);
    for (int month = 0; month < 12; ++month)
        facts.monthAbbreviations[month] = localeText(static_cast<LCTYPE>(LOCALE_SABBREVMONTHNAME1 + month));
    facts.timeSeparator = localeText(LOCALE_STIME);
    facts.digitGroup = localeText(LOCALE_STHOUSAND);
    facts.paperLocale = localeText(LOCALE_SNAME);
    return facts;
}

void useBinaryStandardStreams() {
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

}  // namespace hlyd::os
