// What moc writes for the classes of this folder that are headers alone.
#include "moc_ActionButtonBridge.cpp"
#include "moc_BoxedInformationListBridge.cpp"
#include "moc_InformationBoxBridge.cpp"
#include "moc_PageEntryBridge.cpp"
#include "moc_SpacerBridge.cpp"
#include "moc_TooltipInformationBridge.cpp"
