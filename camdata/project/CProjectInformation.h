#pragma once

#include "camdata/platform/base/Export.h"
#include "camdata/platform/base/ZetArray.h"
#include "camdata/platform/dialog/DialogResult.h"
#include "camdata/platform/host/ZetNCProjectData.h"
#include "camdata/platform/system/Clock.h"
#include "camdata/platform/text/ZetString.h"
#include "camdata/project/COutPutFiles.h"
#include "camdata/util/FileFault.h"

#include <cstdint>
#include <optional>
#include <utility>

class ProjectDialogGuide;

/// The project and delivery data that heads the output files of a run. A value; plug-ins may derive
/// from it. Texts and lists are empty at first, but for the three dates, which are today's.
class CAMDATA_API CProjectInformation {
  public:
    /// Characters of a text buffer, for hosts that need one.
    static constexpr int s_iCharSize = 128;

    CProjectInformation() = default;
    virtual ~CProjectInformation();
    CProjectInformation(const CProjectInformation&) = default;
    CProjectInformation& operator=(const CProjectInformation&) = default;
    CProjectInformation(CProjectInformation&&) = default;
    CProjectInformation& operator=(CProjectInformation&&) = default;

    /// Takes over the host's project name, project number, client, cold-rolled customer and order
    /// number, contractor, designer and detailer. The contacts of contractor and designer are left
    /// out on purpose.
    void SetProjectData(const ZetNCProjectData& data);
    /// Replaces the output files and sets their number.
    void SetOutPuts(const ZetArray<COutPutFiles>& files);

    /// Reads the settings file, whose name is the location followed directly by the settings file
    /// name.
    ///
    /// Its entries are, in this order: file name, cold-rolled order number and date, comments,
    /// revision, revision date, delivery date, delivery address. An entry begins with a line that
    /// begins with "+", which is dropped; each further line is joined to it by CR LF, in place of
    /// the last character of the line before, which is the CR of a CR LF line end and is lost
    /// whatever it is. A last line without a line feed drops the whole entry.
    ///
    /// False, with nothing changed, when the number of entries is not the expected one, when the
    /// file cannot be read to its end, and when it has more than kMaxSettingsLength characters. A
    /// file that cannot be opened changes nothing and gives true.
    bool GetDetailFromFile();
    /// The most characters that a settings file may have, to be read and to be written.
    static constexpr long kMaxSettingsLength = 4L * 1024 * 1024;
    /// Writes the settings file that GetProjFileName names: a line per entry, its prefix and its
    /// value, in the order in which GetDetailFromFile reads them. What went wrong; nothing: all was
    /// written. With more than kMaxSettingsLength characters that is EFBIG, and the file stays as
    /// it is. Fewer than eight prefixes fail the assertion "isValid( index )", unless no file is
    /// named, and nothing is written.
    std::optional<FileFault> WriteSettings() const;

    /// Adds a header entry to the gathered header lines: the comment mark, the label filled up to
    /// 25 characters, " : " and the value. If the whole has CR LF after its first character, it is
    /// cut into lines at every CR LF, and the further lines begin with the comment mark filled up
    /// to 27 characters and " : ".
    void AppendFileHeaderLine(const ZetString& label, const ZetString& value);
    /// Shows the project information dialog until the user closes it.
    ///
    /// Confirmed: the settings file is written (WriteSettings) from the dialog's fields, and then
    /// the record gets file name, cold-rolled order number and date, comments, revision and its
    /// date, delivery date and address; comments and address also as lines (none for an empty
    /// text). Cancelled, and when the dialog cannot be shown: IsCancelled becomes true (nothing
    /// here makes it false again), and no other field of the record changes. GetDialogResult tells
    /// the two apart.
    ///
    /// A date that is none in the platform's form is shown, and confirmed, as today.
    void ShowDialog();
    /// The same, with a program that looks after the user's entries.
    void ShowGuidedDialog(ProjectDialogGuide& guide);
    /// How the last ShowDialog ended, and why it could not show the dialog.
    const DialogResult& GetDialogResult() const { return m_dialogResult; }
    /// Why the last confirmed dialog left no complete settings file; nothing: it did.
    const std::optional<FileFault>& GetSettingsFault() const { return m_settingsFault; }

    /// Prefix of the output files' names.
    void SetPrefix(ZetString prefix) { m_prefix = std::move(prefix); }
    ZetString GetPrefix() const { return m_prefix; }
    /// Name of the manufacturing output folder.
    void SetManDirName(ZetString manDirName) { m_manDirName = std::move(manDirName); }
    ZetString GetManDirName() const { return m_manDirName; }
    /// Full name of the output, with its path.
    void SetFullName(ZetString fullName) { m_fullName = std::move(fullName); }
    ZetString GetFullName() const { return m_fullName; }
    /// Name of the model, or of its drawing.
    void SetModelName(ZetString modelName) { m_modelName = std::move(modelName); }
    ZetString GetModelName() const { return m_modelName; }
    /// Folder of the model.
    void SetModelFolder(ZetString modelFolder) { m_modelFolder = std::move(modelFolder); }
    ZetString GetModelFolder() const { return m_modelFolder; }
    /// Reference of the model.
    void SetModelRef(ZetString modelRef) { m_modelRef = std::move(modelRef); }
    ZetString GetModelRef() const { return m_modelRef; }
    /// The user cancelled the dialog.
    void SetIsCancelled(bool isCancelled) { m_isCancelled = isCancelled; }
    bool GetIsCancelled() const { return m_isCancelled; }
    /// File name of the settings file, in the folder of the output.
    void SetSettingFileName(ZetString settingFileName) {
        m_settingFileName = std::move(settingFileName);
    }
    ZetString GetSettingFileName() const { return m_settingFileName; }
    /// Caption of the project information dialog.
    void SetDialogCaption(ZetString dialogCaption) { m_dialogCaption = std::move(dialogCaption); }
    ZetString GetDialogCaption() const { return m_dialogCaption; }
    /// The file name that the user entered.
    void SetFileName(ZetString fileName) { m_fileName = std::move(fileName); }
    ZetString GetFileName() const { return m_fileName; }
    /// The output files of the run. Setting them leaves their number as it is; see SetOutPuts.
    void SetFileNameArr(ZetArray<COutPutFiles> files) { m_fileNameArr = std::move(files); }
    ZetArray<COutPutFiles> GetFileNameArr() const { return m_fileNameArr; }
    /// Folder of the output and of the settings file, with the separator at its end.
    void SetLocation(ZetString location) { m_location = std::move(location); }
    ZetString GetLocation() const { return m_location; }
    void SetProjectName(ZetString projectName) { m_projectName = std::move(projectName); }
    ZetString GetProjectName() const { return m_projectName; }
    void SetProjectNo(ZetString projectNo) { m_projectNo = std::move(projectNo); }
    ZetString GetProjectNo() const { return m_projectNo; }
    void SetClient(ZetString client) { m_client = std::move(client); }
    ZetString GetClient() const { return m_client; }
    /// Cold-rolled customer, order number and order date.
    void SetColdRolledCust(ZetString coldRolledCust) {
        m_coldRolledCust = std::move(coldRolledCust);
    }
    ZetString GetColdRolledCust() const { return m_coldRolledCust; }
    void SetColdRolledOrderNo(ZetString coldRolledOrderNo) {
        m_coldRolledOrderNo = std::move(coldRolledOrderNo);
    }
    ZetString GetColdRolledOrderNo() const { return m_coldRolledOrderNo; }
    void SetColdRolledOrderDate(ZetString coldRolledOrderDate) {
        m_coldRolledOrderDate = std::move(coldRolledOrderDate);
    }
    ZetString GetColdRolledOrderDate() const { return m_coldRolledOrderDate; }
    void SetContractor(ZetString contractor) { m_contractor = std::move(contractor); }
    ZetString GetContractor() const { return m_contractor; }
    void SetDesigner(ZetString designer) { m_designer = std::move(designer); }
    ZetString GetDesigner() const { return m_designer; }
    void SetDetailer(ZetString detailer) { m_detailer = std::move(detailer); }
    ZetString GetDetailer() const { return m_detailer; }
    /// The comments, line by line.
    void SetComments(ZetArray<ZetString> comments) { m_comments = std::move(comments); }
    ZetArray<ZetString> GetComments() const { return m_comments; }
    void SetRevision(ZetString revision) { m_revision = std::move(revision); }
    ZetString GetRevision() const { return m_revision; }
    void SetRevisionDate(ZetString revisionDate) { m_revisionDate = std::move(revisionDate); }
    ZetString GetRevisionDate() const { return m_revisionDate; }
    void SetDeliveryDate(ZetString deliveryDate) { m_deliveryDate = std::move(deliveryDate); }
    ZetString GetDeliveryDate() const { return m_deliveryDate; }
    /// The delivery address, line by line.
    void SetDeliveryAddress(ZetArray<ZetString> deliveryAddress) {
        m_deliveryAddress = std::move(deliveryAddress);
    }
    ZetArray<ZetString> GetDeliveryAddress() const { return m_deliveryAddress; }
    /// Number of output files.
    void SetNoOfOutPuts(long count) { m_noOfOutPuts = count; }
    long GetNoOfOutPuts() const { return m_noOfOutPuts; }
    /// The header lines that AppendFileHeaderLine has gathered.
    void SetFileHeaderArr(ZetArray<ZetString> lines) { m_fileHeaderArr = std::move(lines); }
    ZetArray<ZetString> GetFileHeaderArr() const { return m_fileHeaderArr; }
    /// The comments as one text, CR LF between its lines.
    void SetMxComments(ZetString mxComments) { m_mxComments = std::move(mxComments); }
    ZetString GetMxComments() const { return m_mxComments; }
    /// The delivery address as one text, CR LF between its lines.
    void SetMxDeliveryAddress(ZetString mxDeliveryAddress) {
        m_mxDeliveryAddress = std::move(mxDeliveryAddress);
    }
    ZetString GetMxDeliveryAddress() const { return m_mxDeliveryAddress; }
    /// Full name of the file that the dialog writes the settings to.
    void SetProjFileName(ZetString projFileName) { m_projFileName = std::move(projFileName); }
    ZetString GetProjFileName() const { return m_projFileName; }
    /// What each of the eight entries of the settings file begins with, in their order. Reading
    /// takes only a "+" away, so "+" is the prefix that comes back as it went.
    void SetProjInfoArrInFile(ZetArray<ZetString> prefixes) {
        m_projInfoArrInFile = std::move(prefixes);
    }
    ZetArray<ZetString> GetProjInfoArrInFile() const { return m_projInfoArrInFile; }
    /// The mark that every header line begins with.
    void SetCommentStr(ZetString commentStr) { m_commentStr = std::move(commentStr); }
    ZetString GetCommentStr() const { return m_commentStr; }

  protected:
    /// Number of entries that the settings file must have, at most eight of which are used. Derived
    /// classes set it, to 8 as a rule.
    std::int32_t m_expectedEntryCount = 0;
    /// A text of derived classes' own, copied with the rest.
    ZetString m_ownText;

  private:
    void RunDialog(ProjectDialogGuide* guide);

    ZetString m_prefix;
    ZetString m_manDirName;
    ZetString m_fullName;
    ZetString m_modelName;
    ZetString m_modelFolder;
    ZetString m_modelRef;
    bool m_isCancelled = false;
    ZetString m_settingFileName;
    ZetString m_dialogCaption;
    ZetString m_fileName;
    ZetArray<COutPutFiles> m_fileNameArr;
    ZetString m_location;
    ZetString m_projectName;
    ZetString m_projectNo;
    ZetString m_client;
    ZetString m_coldRolledCust;
    ZetString m_coldRolledOrderNo;
    ZetString m_coldRolledOrderDate = FormatDate(Today());
    ZetString m_contractor;
    ZetString m_designer;
    ZetString m_detailer;
    ZetArray<ZetString> m_comments;
    ZetString m_revision;
    ZetString m_revisionDate = m_coldRolledOrderDate;
    ZetString m_deliveryDate = m_coldRolledOrderDate;
    ZetArray<ZetString> m_deliveryAddress;
    long m_noOfOutPuts = 0;
    ZetArray<ZetString> m_fileHeaderArr;
    ZetString m_mxComments;
    ZetString m_mxDeliveryAddress;
    ZetString m_projFileName;
    ZetArray<ZetString> m_projInfoArrInFile;
    ZetString m_commentStr;
    DialogResult m_dialogResult;
    std::optional<FileFault> m_settingsFault;
};
