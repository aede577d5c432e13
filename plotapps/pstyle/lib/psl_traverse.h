// Walking through a folder and all that is in it.

#ifndef PSL_TRAVERSE_H
#define PSL_TRAVERSE_H

class wxDirTraverser;
class wxString;

/// Tells a traverser of what a folder holds in the order of wxDir::Traverse: what its folders hold
/// comes before its own files, and either in the order in which the system lists them. Hidden ones
/// are included, and symbolic links are followed. Unlike the toolkit's own traversal, this one
/// always ends: a folder that is being walked is not entered again from within, folders that
/// several links lead to are entered repeatedly a thousand times in all, and what the system makes
/// up (/proc, /sys) is not entered at all. Folders that cannot be read are passed over. The
/// traverser may have folders left out, but cannot stop the traversal.
void traverseFolder(const wxString& folder, wxDirTraverser& traverser);

#endif
