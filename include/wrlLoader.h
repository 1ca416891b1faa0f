/*
 * wrlLoader: loads a VRML 97 file or URL into a cs scene graph.
 *
 *   csNode* scene = wrlLoad(name);
 *
 * `name` is a local file name (looked up along OPTPATH when it does not
 * open as given) or an http URL. The result is a csEnvironment holding the
 * scene, owned by the caller, or null when the file was not found or is a
 * VRML 1.0 file. A file that fails to parse gives an environment without
 * children. ZNBUILTINS must name the Node Support file.
 */
#ifndef WRL_LOADER_PUBLIC_H
#define WRL_LOADER_PUBLIC_H

class csNode;

extern "C" csNode* wrlLoad(char* filename);

#endif
