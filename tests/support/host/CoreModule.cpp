// The host module that knows the system variables.

#include "support/host/FakeHostModule.h"

#include "camdata/platform/host/HostFunctions.h"

#include <cwchar>

namespace {

struct Variable {
    const wchar_t* name;
    int type;
    const wchar_t* text;
};

constexpr int kMaxVariables = 4;
constexpr int kMaxText = 64;

Variable g_variables[kMaxVariables];
int g_count = 0;
// One buffer for all answers: a caller that does not copy the text in time finds the next one.
wchar_t g_answer[kMaxText];

const Variable* Find(const wchar_t* name) {
    for (int i = 0; i < g_count; ++i)
        if (std::wcscmp(g_variables[i].name, name) == 0)
            return &g_variables[i];
    return nullptr;
}

}  // namespace

FAKE_HOST_API void fakeHostSetVariable(const wchar_t* name, int type, const wchar_t* text) {
    g_variables[g_count++] = {name, type, text};
}

FAKE_HOST_API int kwedGetVar(const wchar_t* name, HostVariable* value) {
    // What a host leaves behind when it knows no such variable is nobody's business.
    *value = {HostVariable::eTypeText, std::wcscpy(g_answer, L"stale")};
    const Variable* variable = Find(name);
    if (variable == nullptr)
        return -1;
    value->type = variable->type;
    value->text = variable->text == nullptr ? nullptr : std::wcscpy(g_answer, variable->text);
    return 0;
}
