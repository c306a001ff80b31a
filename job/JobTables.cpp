#include "job/JobTables.h"

#include "job/JobKeyTables.h"
#include "job/JobKeys.h"

namespace job {

namespace {

// clang-format off

constexpr Key kJobKeys[] = {
    Row<JobTable, &JobTable::name>("name", "What the job is called."),
    Row<JobTable, &JobTable::ncFiles>("nc_files", "NC files, relative to the job file's folder; `*` stands for any text, `?` for one character. Files are read in the order of their names, each once.", {.isRequired = true}),
    Row<JobTable, &JobTable::output>("output", "Folder of the output, relative to the job file's folder."),
    Row<JobTable, &JobTable::date>("date", "The day that counts as today, for output that can be repeated.", {.defaultNote = "today"}),
    Row<JobTable, &JobTable::maximumQuantity>("max_quantity", "The most pieces that a member may have (`quantity`).", {.range = kCount}),
};

constexpr Key kNcKeys[] = {
    Row<NcInput, &NcInput::mark>("mark", "What a part is told from others by: a line of the file's header (4, 2 or 3), or the file's name without its ending. path: the name with its folders below the job's, for files of one name. Assemblies name it, and every list shows it."),
    Row<NcInput, &NcInput::encoding>("encoding", "How names in the files are written. \"auto\": each text is UTF-8 when it can be, else Windows-1252."),
    Row<NcInput, &NcInput::unreadable>("unreadable", "What a file does that cannot be read. refuse: nothing is made. leave_out: the rest is made; the file is listed with its reason, and the exit code is 1."),
    Row<NcInput, &NcInput::unmatched>("unmatched", "The same for a file that no member type takes, or whose profile name has no number where its type looks for one."),
    Row<NcInput, &NcInput::warnings>("warnings", "What a warning of the reader does, for example that a hole lies outside of its face. report: it is printed. refuse: nothing is made."),
};

constexpr Key kReportsKeys[] = {
    Row<Reports, &Reports::areSourcesTold>("sources", "Whether the errors and warnings name the NC file of each member below its part number."),
    Row<Reports, &Reports::hasPage>("html", "Whether a page for people is made, `<file_name>-report.html`."),
    Row<Reports, &Reports::hasRunDocument>("run_document", "Whether the run is told to programs and to later runs, `<file_name>-run.json`."),
};

constexpr Key kProjectKeys[] = {
    Row<ProjectTable, &ProjectTable::caption>("caption", "Title of the project dialog."),
    Row<ProjectTable, &ProjectTable::fileName>("file_name", "What the names of all output files begin with.", {.defaultNote = "the job file's name without its ending"}),
    Row<ProjectTable, &ProjectTable::settingsFile>("settings_file", "File beside the output that keeps what the dialog changed from run to run. A second one beside it, its name with `-job.json` at the end, keeps what the job said at that time."),
    Row<ProjectTable, &ProjectTable::settings>("settings", "What the dialog changed in earlier runs. use: a value counts until the job's own value changes; the run tells which it takes. ignore: the job alone counts."),
    Row<ProjectTable, &ProjectTable::modelName>("model_name", "The model that the NC files come from."),
    Row<ProjectTable, &ProjectTable::modelRef>("model_ref", "The model's reference."),
    Row<ProjectTable, &ProjectTable::name>("name", "Project name."),
    Row<ProjectTable, &ProjectTable::number>("number", "Project number."),
    Row<ProjectTable, &ProjectTable::client>("client", "Client."),
    Row<ProjectTable, &ProjectTable::coldRolledCustomer>("cold_rolled_customer", "Customer of the cold-rolled steel."),
    Row<ProjectTable, &ProjectTable::coldRolledOrderNo>("cold_rolled_order_no", "Its order number."),
    Row<ProjectTable, &ProjectTable::coldRolledOrderDate>("cold_rolled_order_date", "Its order date, yyyy-mm-dd.", {.defaultNote = "the day of the run, or `date` of [job]"}),
    Row<ProjectTable, &ProjectTable::contractor>("contractor", "Contractor."),
    Row<ProjectTable, &ProjectTable::designer>("designer", "Designer."),
    Row<ProjectTable, &ProjectTable::detailer>("detailer", "Detailer."),
    Row<ProjectTable, &ProjectTable::comments>("comments", "Comment lines."),
    Row<ProjectTable, &ProjectTable::revision>("revision", "Revision."),
    Row<ProjectTable, &ProjectTable::revisionDate>("revision_date", "Its date, yyyy-mm-dd.", {.defaultNote = "the day of the run, or `date` of [job]"}),
    Row<ProjectTable, &ProjectTable::deliveryDate>("delivery_date", "Delivery date, yyyy-mm-dd.", {.defaultNote = "the day of the run, or `date` of [job]"}),
    Row<ProjectTable, &ProjectTable::deliveryAddress>("delivery_address", "Lines of the delivery address."),
    Row<ProjectTable, &ProjectTable::commentMarker>("comment_marker", "What each project line in the output files begins with."),
};

constexpr Key kTolerancesKeys[] = {
    Row<TolerancesTable, &Tolerances::eps>("eps", "Below it two numbers are one.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::general>("general", "General tolerance; decides about corner notches.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::x>("x", "Tolerance along the member.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::y>("y", "Tolerance across a face; also of the sizes and distances of hole rules.", {.range = kTolerance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::angle>("angle", "Tolerance of directions.", {.range = kTolerance, .unit = "degrees"}),
    Row<TolerancesTable, &Tolerances::edgeDistance>("edge_distance", "Least distance of a hole from the edge of its face. Below 0: so many diameters; 0: not checked.", {.range = kLimitDistance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::distanceFromFace>("distance_from_face", "Least distance of a hole from the next face. Below 0: so many diameters; 0: not checked.", {.range = kLimitDistance, .unit = "mm"}),
    Row<TolerancesTable, &Tolerances::endDistance>("end_distance", "Least distance of a hole from the member's ends. Below 0: so many diameters; 0: not checked.", {.range = kLimitDistance, .unit = "mm"}),
    Row<TolerancesTable, &TolerancesTable::areDistancesChecked>("check_distances", "Whether these distances are checked at all (`hole_distance`)."),
};

constexpr Key kAdditionalInfoKeys[] = {
    Row<AdditionalInfoTable, &AdditionalInfoTable::members>("members", "First lines of the list of all members."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::nonStandard>("non_standard", "First lines of the list of non-standard members."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::errors>("errors", "First lines of the list of members with errors."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::warnings>("warnings", "First lines of the list of members with warnings."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::order>("order", "Which lists are written, in this order."),
    Row<AdditionalInfoTable, &AdditionalInfoTable::hasTotals>("totals", "Whether pieces, metres and tonnes of the valid members follow, per group and per profile; tonnes by the weight per metre of the NC files."),
};

constexpr KeyTable kJobTable{kJobKeys};
constexpr KeyTable kNcTable{kNcKeys};
constexpr KeyTable kReportsTable{kReportsKeys};
constexpr KeyTable kProjectTable{kProjectKeys};
constexpr KeyTable kTolerancesTable{kTolerancesKeys};
constexpr KeyTable kAdditionalInfoTable{kAdditionalInfoKeys};

constexpr Key kDocumentKeys[] = {
    Row<JobDocument, &JobDocument::job>("job", "What to read and where to write.", {.isRequired = true, .isTop = true}),
    Row<JobDocument, &JobDocument::nc>("nc", "How the NC files are taken.", {.isTop = true}),
    Row<JobDocument, &JobDocument::project>("project", "Project and delivery data; they head the output files, and the project dialog shows them.", {.isTop = true}),
    Row<JobDocument, &JobDocument::tolerances>("tolerances", "How exactly holes and notches are compared, and how near to an edge they may be.", {.isTop = true}),
    Row<JobDocument, &JobDocument::files>("file", "An output file of the job's own, or a change to one of the four that are always there: `order`, `info`, `errors`, `warnings`.", {.isTop = true}),
    Row<JobDocument, &JobDocument::secondaryParts>("secondary_parts", "The group of all single parts of assemblies.", {.isTop = true}),
    Row<JobDocument, &JobDocument::groups>("group", "A group of members: a section of the orders.", {.isRequired = true, .isTop = true}),
    Row<JobDocument, &JobDocument::cutting>("cutting", "How the plans are made that nested members are cut by.", {.isTop = true}),
    Row<JobDocument, &JobDocument::stocks>("stock", "Bars of one length that nested members are cut from; one table per length. Without any that fits a profile: bars of 4000 mm, and no kerf.", {.isTop = true}),
    Row<JobDocument, &JobDocument::memberTypes>("member_type", "A kind of members, and how they are judged. The first that fits is a member's.", {.isRequired = true, .isTop = true}),
    Row<JobDocument, &JobDocument::holeRules>("hole_rule", "Which holes get which code. The first that fits is a hole's; a list that is not given fits any hole.", {.isTop = true}),
    Row<JobDocument, &JobDocument::uncoveredHoles>("uncovered_holes", "What happens to holes that no hole rule covers (`uncovered_hole`).", {.isTop = true}),
    Row<JobDocument, &JobDocument::cornerNotches>("corner_notch", "A notch at a corner that the machine has a text for. The first that fits is a notch's.", {.isTop = true}),
    Row<JobDocument, &JobDocument::uncoveredNotches>("uncovered_notches", "What happens to notches that no corner notch describes (`uncovered_notch`).", {.isTop = true}),
    Row<JobDocument, &JobDocument::trims>("trim", "A cut along a whole side of a face that the machine has a code for. The first that fits counts; a list that is not given fits any.", {.isTop = true}),
    Row<JobDocument, &JobDocument::patterns>("fixed_pattern", "The holes that members of one length must have.", {.isTop = true}),
    Row<JobDocument, &JobDocument::assemblies>("assembly", "A main part and what is fixed to it.", {.isTop = true}),
    Row<JobDocument, &JobDocument::reports>("reports", "What a run makes for people, and what the files of errors and warnings tell besides the findings.", {.isTop = true}),
    Row<JobDocument, &JobDocument::additionalInfo>("additional_info", "The lists of members in the file `info`.", {.isTop = true}),
};
constexpr KeyTable kDocumentTable{kDocumentKeys};

}  // namespace

template <> const KeyTable& KeysOf<JobTable>() { return kJobTable; }
template <> const KeyTable& KeysOf<NcInput>() { return kNcTable; }
template <> const KeyTable& KeysOf<Reports>() { return kReportsTable; }
template <> const KeyTable& KeysOf<ProjectTable>() { return kProjectTable; }
template <> const KeyTable& KeysOf<TolerancesTable>() { return kTolerancesTable; }
template <> const KeyTable& KeysOf<AdditionalInfoTable>() { return kAdditionalInfoTable; }

// clang-format on

std::vector<JobKeyTable> ListJobKeys() {
    return ListKeys(kDocumentTable);
}

JobDocument ReadTables(const toml::table& file, JobFaults& faults) {
    JobDocument document;
    ReadTable(kDocumentTable, "", file, &document, faults);
    return document;
}

}  // namespace job
