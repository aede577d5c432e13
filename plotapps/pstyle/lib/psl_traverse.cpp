// A traversal that symbolic links cannot keep from ending.

#include "psl_traverse.h"

#include "psl_path_text.h"

#include <wx/dir.h>
#include <wx/string.h>

#include <algorithm>
#include <dirent.h>
#include <linux/magic.h>
#include <memory>
#include <set>
#include <string>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <utility>
#include <vector>

namespace
{

// Links may lead to one folder in many ways, and to those in it in the square of that.
constexpr int mostRepetitions = 1000;

// File systems of what is no file: processes, devices, settings of the system. From magic.h of the
// Linux kernel, and the headers of the file systems that it leaves out.
constexpr long mqueue = 0x19800202;
constexpr long configfs = 0x62656570;
constexpr long fuseControl = 0x65735543;
constexpr long rpcPipes = 0x67596969;
constexpr long madeUp[] = {
    PROC_SUPER_MAGIC, SYSFS_MAGIC,    DEVPTS_SUPER_MAGIC, CGROUP_SUPER_MAGIC, CGROUP2_SUPER_MAGIC,
    DEBUGFS_MAGIC,    TRACEFS_MAGIC,  SECURITYFS_MAGIC,   SELINUX_MAGIC,      SMACK_MAGIC,
    BPF_FS_MAGIC,     PSTOREFS_MAGIC, EFIVARFS_MAGIC,     HUGETLBFS_MAGIC,    BINFMTFS_MAGIC,
    NSFS_MAGIC,       mqueue,         configfs,           fuseControl,        rpcPipes};

using FolderId = std::pair<dev_t, ino_t>;

struct CloseFolder
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};

bool isMadeUp(const std::string& folder)
{
    struct statfs system = {};
    return ::statfs(folder.c_str(), &system) == 0 &&
           std::find(std::begin(madeUp), std::end(madeUp), long(system.f_type)) != std::end(madeUp);
}

class Traversal
{
public:
    explicit Traversal(wxDirTraverser& traverser)
        : m_traverser(traverser)
    {
    }

    void enter(const std::string& folder)
    {
        struct stat info = {};
        if (::stat(folder.c_str(), &info) != 0)
            return;
        const FolderId id(info.st_dev, info.st_ino);
        const bool isNewSystem = m_entered.empty() || m_entered.back().first != id.first;
        const bool isEntered = std::find(m_entered.begin(), m_entered.end(), id) != m_entered.end();
        if (isEntered || (isNewSystem && isMadeUp(folder)))
            return;
        const bool isRepeated = !m_known.insert(id).second;
        if (isRepeated && m_repetitions++ >= mostRepetitions)
            return;
        m_entered.push_back(id);
        walk(folder);
        m_entered.pop_back();
    }

private:
    void walk(const std::string& folder)
    {
        std::vector<std::string> folders;
        std::vector<std::string> files;
        // Closed before the next is opened: folders may be nested more deeply than files be open.
        if (const std::unique_ptr<DIR, CloseFolder> opened{::opendir(folder.c_str())})
        {
            while (const dirent* entry = ::readdir(opened.get()))
                sort(folder, *entry, folders, files);
        }
        for (const std::string& name : folders)
        {
            const std::string path = folder + "/" + name;
            if (m_traverser.OnDir(toolkitText(path)) == wxDIR_CONTINUE)
                enter(path);
        }
        for (const std::string& name : files)
            m_traverser.OnFile(toolkitText(folder + "/" + name));
    }

    static void sort(const std::string& folder, const dirent& entry,
                     std::vector<std::string>& folders, std::vector<std::string>& files)
    {
        const std::string name = entry.d_name;
        if (name == "." || name == "..")
            return;
        bool isFolder = entry.d_type == DT_DIR;
        if (entry.d_type == DT_LNK || entry.d_type == DT_UNKNOWN)
        {
            struct stat info = {};
            isFolder = ::stat((folder + "/" + name).c_str(), &info) == 0 && S_ISDIR(info.st_mode);
        }
        (isFolder ? folders : files).push_back(name);
    }

    static wxString toolkitText(const std::string& path)
    {
        return wxString(path.c_str(), *wxConvFileName);
    }

    wxDirTraverser& m_traverser;
    std::vector<FolderId> m_entered;
    std::set<FolderId> m_known;
    int m_repetitions = 0;
};

} // namespace

void traverseFolder(const wxString& folder, wxDirTraverser& traverser)
{
    const std::string path = systemPath(folder);
    const bool endsInSlash = path.size() > 1 && path.back() == '/';
    Traversal(traverser).enter(endsInSlash ? path.substr(0, path.size() - 1) : path);
}
