// The moc output of this folder's header-only classes.
#include "moc_ActionButtonBridge.cpp"
#include "moc_BoxedInformationListBridge.cpp"
#include "moc_InformationBoxBridge.cpp"
#include "moc_PageEntryBridge.cpp"
#include "moc_SpacerBridge.cpp"
#include "moc_TooltipInformationBridge.cpp"
