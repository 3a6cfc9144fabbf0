#pragma once

#include "CampaignReplies.h"

#include <functional>
#include <optional>
#include <type_traits>
#include <utility>

namespace orrelo::test {

using Attendance = AttendanceCampaignPageDetailDTO;
using Result = CampaignResultPageDTO;
using Stamp = StampCampaignPageDTO;
using Marketing = OptInMarketingCampaignPageDetailDTO;

/// What a value that does not fit its field costs.
enum class Presence {
  outer,     // the reply
  required,  // the page's detail
  tolerant,  // the field, or the record that holds it
  optional,  // nothing where it is missing or null; else the page's detail
};
enum class Type { text, texts, record, records, flag, integer };

struct Field {
  std::string path;
  Presence presence;
  Type type;
  // Gives the field a value that fits, and null to what has a presence without one.
  std::function<void(CampaignDTO&, const Json&)> put;
};

inline void read(std::string& text, const Json& value) {
  text = value.get<std::string>();
}
inline void read(std::vector<std::string>& texts, const Json& value) {
  texts = value.get<std::vector<std::string>>();
}
inline void read(bool& flag, const Json& value) {
  flag = value.is_boolean() && value.get<bool>();
}
inline void read(std::int64_t& number, const Json& value) {
  number = value.get<std::int64_t>();
}
template <class Record>
void read(std::vector<Record>& records, const Json&) {
  records.clear();
}
template <class Value>
void read(std::optional<Value>& field, const Json& value) {
  field.reset();
  if (!value.is_null()) read(field.emplace(), value);
}

template <class Value>
constexpr Type typeOf = Type::records;
template <>
inline constexpr Type typeOf<std::string> = Type::text;
template <>
inline constexpr Type typeOf<std::vector<std::string>> = Type::texts;
template <>
inline constexpr Type typeOf<bool> = Type::flag;
template <>
inline constexpr Type typeOf<std::int64_t> = Type::integer;
template <class Value>
constexpr Type typeOf<std::optional<Value>> = typeOf<Value>;

inline Field outer(const std::string& path, std::string CampaignDTO::*member) {
  return {path, Presence::outer, Type::text,
          [member](auto& dto, const auto& value) { read(dto.*member, value); }};
}

// `member` finds it in the detail.
template <class Detail, class Member>
Field detail(const std::string& path, Presence presence, Member member) {
  using Value = std::remove_cvref_t<std::invoke_result_t<Member, Detail&>>;
  return {"/page/page_detail/" + path, presence, typeOf<Value>, [member](auto& dto, const auto& value) {
            read(std::invoke(member, std::get<Detail>(dto.page.pageDetail.kind)), value);
          }};
}
template <class Detail, class Value>
Field detail(const std::string& key, Presence presence, Value Detail::*member) {
  return detail<Detail, Value Detail::*>(key, presence, member);
}

// A record that may be absent.
template <class Detail, class Record>
Field record(const std::string& key, std::optional<Record> Detail::*member) {
  return {"/page/page_detail/" + key, Presence::tolerant, Type::record,
          [member](auto& dto, const auto&) { (std::get<Detail>(dto.page.pageDetail.kind).*member).reset(); }};
}

// A text within such a record.
template <class Detail, class Record>
Field inner(const std::string& path, std::optional<Record> Detail::*member, std::string Record::*text) {
  return {"/page/page_detail/" + path, Presence::tolerant, Type::text, [=](auto& dto, const auto& value) {
            auto& record = std::get<Detail>(dto.page.pageDetail.kind).*member;
            if (value.is_null()) {
              record.reset();
            } else {
              read((*record).*text, value);
            }
          }};
}

inline const PageDetailDTO unknown{UnknownCampaignDetailDTO{}, "이벤트"};

inline std::vector<Field> fieldsOfAll() {
  return {
      outer("/id", &CampaignDTO::id),
      outer("/label", &CampaignDTO::label),
      outer("/name", &CampaignDTO::name),
      outer("/icon", &CampaignDTO::iconUrl),
      {"/page", Presence::outer, Type::record, {}},
      {"/page/page_type", Presence::outer, Type::text,
       [](auto& dto, const auto& value) {
         read(dto.page.pageType, value);
         dto.page.pageDetail = unknown;
       }},
      {"/page/page_id", Presence::outer, Type::text,
       [](auto& dto, const auto& value) { read(dto.page.pageId, value); }},
      {"/page/page_detail", Presence::required, Type::record, {}},
      {"/page/page_detail/toolbar_text", Presence::optional, Type::text,
       [](auto& dto, const auto& value) { read(dto.page.pageDetail.toolbarText, value); }},
  };
}

inline std::vector<Field> attendanceFields() {
  return {
      detail("first_title", Presence::required, &Attendance::firstTitle),
      detail("second_title", Presence::required, &Attendance::secondTitle),
      detail("status_message", Presence::required, &Attendance::statusMessage),
      detail("today", Presence::required, &Attendance::today),
      detail("attended_date", Presence::required, &Attendance::attendedDate),
      detail("highlighted_date", Presence::required, &Attendance::highlightDate),
      detail("highlight_icon", Presence::tolerant, &Attendance::highlightIcon),
      detail("button_enable", Presence::required, &Attendance::buttonEnable),
      detail("button_text", Presence::required, &Attendance::buttonText),
      detail("button_url", Presence::required, &Attendance::buttonUrl),
      detail("calendar_description", Presence::required, &Attendance::calendarDescription),
      detail("color", Presence::required, &Attendance::color),
      detail("highlight_color", Presence::required, &Attendance::highlightColor),
      detail("guide_message", Presence::required, &Attendance::guideMessage),
      detail("notice", Presence::required, &Attendance::notice),
      detail("image_url", Presence::tolerant, &Attendance::imageUrl),
      record("reward_message", &Attendance::rewardMessage),
      inner("reward_message/title", &Attendance::rewardMessage, &RewardMessageDTO::title),
      inner("reward_message/body", &Attendance::rewardMessage, &RewardMessageDTO::body),
      inner("reward_message/button_text", &Attendance::rewardMessage, &RewardMessageDTO::buttonText),
  };
}

inline std::vector<Field> resultFields() {
  return {
      detail("image_url", Presence::required, &Result::imageUrl),
      detail("body", Presence::required, &Result::body),
      detail("notice", Presence::required, &Result::notice),
      record("pop_up", &Result::popUpDialog),
      inner("pop_up/title", &Result::popUpDialog, &PopUpDialogDTO::title),
      inner("pop_up/label", &Result::popUpDialog, &PopUpDialogDTO::label),
      inner("pop_up/image_url", &Result::popUpDialog, &PopUpDialogDTO::imageUrl),
      inner("pop_up/button_text", &Result::popUpDialog, &PopUpDialogDTO::buttonText),
  };
}

inline std::vector<Field> stampFields() {
  std::vector<Field> fields{
      {"/page/page_detail/stamp", Presence::required, Type::record, {}},
      detail<Stamp>(
          "stamp/column_count", Presence::required,
          [](Stamp & stamp) -> auto& { return stamp.stampDTO.columnCount; }),
      detail<Stamp>(
          "stamp/missions", Presence::required,
          [](Stamp & stamp) -> auto& { return stamp.stampDTO.mission; }),
      {"/page/page_detail/layout", Presence::required, Type::record, {}},
      detail<Stamp>(
          "layout/component_order", Presence::required,
          [](Stamp & stamp) -> auto& { return stamp.layoutDTO.componentOrder; }),
      detail("main_image_url", Presence::tolerant, &Stamp::mainImageUrl),
      detail("sub_image_url", Presence::tolerant, &Stamp::subImageUrl),
      detail("first_title", Presence::tolerant, &Stamp::firstTitle),
      detail("second_title", Presence::tolerant, &Stamp::secondTitle),
      detail("guide_message", Presence::tolerant, &Stamp::guideMessage),
      detail("notice", Presence::tolerant, &Stamp::notice),
  };
  for (const std::size_t i : {0U, 3U}) {
    const auto mission = "stamp/missions/" + std::to_string(i);
    fields.push_back(detail<Stamp>(
        mission + "/name",
        Presence::required, [i](Stamp & stamp) -> auto& { return stamp.stampDTO.mission.at(i).name; }));
    fields.push_back(detail<Stamp>(
        mission + "/icon_url",
        Presence::required, [i](Stamp & stamp) -> auto& { return stamp.stampDTO.mission.at(i).iconUrl; }));
  }
  return fields;
}

inline std::vector<Field> marketingFields() {
  return {
      detail("image_url", Presence::required, &Marketing::imageUrl),
      detail("button_enable", Presence::required, &Marketing::buttonEnable),
      detail("button_text", Presence::required, &Marketing::buttonText),
      detail("button_visibility", Presence::required, &Marketing::buttonVisibility),
      detail("color", Presence::required, &Marketing::color),
      detail("notice", Presence::required, &Marketing::notice),
  };
}

}  // namespace orrelo::test
