#include "Grab.h"

#include "camdata/platform/dialog/DialogWindow.h"
#include "camdata/project/CProjectInformation.h"

#include <cstdio>
#include <string>

// dialog_pictures PREFIX draws the project information dialog of a made-up project, one picture a
// tab.

namespace {

constexpr int kTabs = 1002;
constexpr const char* kTabNames[] = {"output", "project", "delivery"};

COutPutFiles File(const wchar_t* suffix, const wchar_t* caption) {
    COutPutFiles file;
    file.SetValues(suffix, caption);
    return file;
}

CProjectInformation Warehouse() {
    CProjectInformation project;
    project.SetDialogCaption(L"Output of warehouse north");
    project.SetFileName(L"warehouse");
    project.SetLocation(L"/projects/warehouse/cam/");
    project.SetOutPuts({File(L"warehouse-orders.txt", L"-orders.txt"),
                        File(L"warehouse-cutting.txt", L"Cutting list"),
                        File(L"warehouse-info.txt", L"Additional information"),
                        File(L"warehouse-errors.txt", L"Errors"),
                        File(L"warehouse-warnings.txt", L"Warnings"),
                        File(L"warehouse-rails.txt", L"rails")});
    project.SetModelRef(L"WH-2024 model 3");
    project.SetProjectName(L"Warehouse north");
    project.SetProjectNo(L"2024-117");
    project.SetClient(L"Harbour Storage & Co");
    project.SetColdRolledCust(L"Steel Trading West");
    project.SetColdRolledOrderNo(L"CR-4711");
    project.SetColdRolledOrderDate(FormatDate({2024, 10, 28}));
    project.SetContractor(L"Hall Builders");
    project.SetDesigner(L"Anna Sch\u00E4fer");
    project.SetDetailer(L"Jo\u00E3o Lima");
    project.SetMxComments(
        L"Galvanised, not painted.\r\nBundles of at most 2.5 t.\r\n"
        L"Call the yard before the first lorry leaves.");
    project.SetRevision(L"C");
    project.SetRevisionDate(FormatDate({2024, 11, 30}));
    project.SetDeliveryDate(FormatDate({2024, 12, 20}));
    project.SetMxDeliveryAddress(L"Hall Builders, yard 3\r\nGr\u00FCner Weg 12\r\n20095 Hamburg");
    project.SetProjFileName(L"/projects/warehouse/cam/settings.txt");
    return project;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    bool allSaved = true;
    int count = 0;
    SetDialogDriver(DialogDriver{DialogDriver::Backend::kNative,
                                 [&](DialogWindow& window) {
                                     for (const char* name : kTabNames) {
                                         window.SelectTab(kTabs, count++);
                                         allSaved &= GrabDialog(std::string(argv[1]) + name);
                                     }
                                 },
                                 {}});
    CProjectInformation project = Warehouse();
    project.ShowDialog();
    std::printf("%d pictures %s\n", count, project.GetDialogResult().reason.toUtf8().c_str());
    return count == 3 && allSaved ? 0 : 1;
}
