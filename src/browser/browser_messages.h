// Every text that the browser core prints or throws.
#ifndef ZN_BROWSER_MESSAGES_H
#define ZN_BROWSER_MESSAGES_H

inline constexpr const char* kBrowserName = "Zenoscapes";
inline constexpr const char* kBrowserVersion = "2.0R4";

inline constexpr const char* kInvalidTypeID = "Invalid Node Type ID:  ID=%d";
inline constexpr const char* kInvalidNodeID = "Invalid Node ID:  ID=%d";
inline constexpr const char* kInvalidNodeName = "Invalid Node name:  nodeName=%s";
inline constexpr const char* kInvalidNodeIDForName = "Invalid Node ID:  name=%s id=%d";
inline constexpr const char* kCantFindNodeID =
    "Possible error in getNodeID, will try to resolve later!\ngetNodeID : can't find ID for %s\n";
inline constexpr const char* kCantAddToWorld = "Can't add to current world";
inline constexpr const char* kCouldntLoadURL = "Couldn't load URL";
// A node reference too long for the resolve stack keeps only its start.

// Pattern of the name map's key for the first definition of a name.
inline constexpr const char* kFirstDefinitionKey = "00000+%s";
inline constexpr int kFirstDefinitionPrefix = 6;  // the length of "00000+"
// Pattern of a name that the database made unique.
inline constexpr const char* kNumberedName = "%s_%d";

// --- Nodes from the database -------------------------------------------------
inline constexpr const char* kSkipNodeInvalidType = "Skipping node %s due to invalid NodeType ID.\n";
inline constexpr const char* kSkipNodeNullType = "Skipping node %s due to NULL NodeType...\n";
inline constexpr const char* kFailedInsertNodeName = "failed inserting node name: %s";
inline constexpr const char* kFailedInsertNode = "failed inserting node: %s";
inline constexpr const char* kErrorAddingField = "error adding field: %s";

// --- The default simulation manager -------------------------------------------
inline constexpr const char* kCouldNotPostSensor = "Could not post sensor with Invalid Node ID.  ID=%d\n";
inline constexpr const char* kCouldNotRemoveSensor = "Could not remove sensor with Invalid Node ID.  ID=%d\n";

// --- Runtime world changes ------------------------------------------------------
// Directory and counter; the six Xs become a unique suffix.
inline constexpr const char* kTmpFilePattern = "%s/.zn%02dXXXXXX";
inline constexpr const char* kStringWorldFormat = "#VRML V2.0 utf8\n\n%s";
inline constexpr const char* kSkipInvalidTopLevel = "Skipping invalid top level node.  ID=%d\n";
inline constexpr const char* kCantProcessCreatedEvent =
    "Can not process event in CreateVrmlFromURL.. nodeID=%d\n";
// Left to this system: the temporary file of a string could not be made.
inline constexpr const char* kTmpFileFailed = "Can't write temporary file %s\n";

// --- Routes and events ------------------------------------------------------------
inline constexpr const char* kBadRouteSource = "Bad route due to invalid source node ID: %d";
inline constexpr const char* kBadRouteDestination = "Bad route due to invalid destination node ID: %d";
inline constexpr const char* kBadRouteEventOut = "Invalid eventOut name %s in route\n";
inline constexpr const char* kBadRouteEventIn = "Invalid eventIn name %s in route\n";
inline constexpr const char* kBadRouteEventInIndex = "EventIn not in eventIn table for route\n";
inline constexpr const char* kSkipRouteSource = "Skipping route due to invalid source node ID: %d\n";
// The spelling of the load's own report of a bad destination stays as it is.
inline constexpr const char* kSkipRouteDestination = "Skippign route due to invalid destination node ID: %d\n";
// deleteRoute's twin of the above, without the blank after the colon.
inline constexpr const char* kSkipDeletedRouteDestination =
    "Skipping route due to invalid destination node ID:%d\n";
inline constexpr const char* kRouteEventOutUnknown = "Invalid eventOut name %s in route";
inline constexpr const char* kRouteEventInUnknown = "Invalid eventIn name %s in route";
inline constexpr const char* kRouteEventInNoIndex = "EventIn not in eventIn table for route";
inline constexpr const char* kRouteEventOutNoIndex = "Unable to add eventOut to routeTable";
// One end of a route as the manager keeps it: node name, field name.
inline constexpr const char* kRouteEnd = "%s.%s";
inline constexpr const char* kNoEvents = "NO EVENTS";
// The application interface class told of each new route.
inline constexpr const char* kRouteListenerClass = "ui";

// --- World output -------------------------------------------------------------------
inline constexpr const char* kWorldHeader = "\n#VRML V2.0 utf8 \n\n";
inline constexpr const char* kSkipTopLevelOutput = "Skipping top level node due to invalid NodeID.  ID=%s\n";

#endif
