#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/export.h"
#include "dralo/page_context.h"
#include "dralo/request.h"
#include "dralo/response.h"

namespace dralo {

/// One request and its response for a C++ program that serves pages itself.
/// Fill in the request, hand the page to DbView::OnStartPage(), render, send what was collected: status,
/// headers and body. It belongs to one thread, and must outlive its views or their OnEndPage(). Setting its
/// status or its headers throws Error once a piece was sent.
class DRALO_EXPORT Page final : public PageContext, private Request, private Response {
 public:
  /// Thrown by End() so that the program stops rendering the page; catch it where the page is served.
  struct DRALO_EXPORT Ended {};

  /// `query_string` and `form_body` as they came (application/x-www-form-urlencoded); `script_name` is the
  /// address that links and the form lead back to.
  Page(std::string_view script_name, std::string_view query_string, std::string_view form_body = {});

  /// Sends pieces on as they are written instead of collecting them; headers are complete by then. A piece is
  /// valid during the call, and what the function throws ends the rendering.
  std::function<void(const Page& page, std::string_view piece)> send;

  /// @{
  /// From the request line and the headers of the request; set them before rendering. Hardened views change
  /// records only for a "POST" whose headers show where it comes from, so without these they change none.
  /// Header names are in any letter case; a header that came twice stands here twice.
  std::string method;
  std::vector<std::pair<std::string, std::string>> request_headers;
  /// @}

  /// The status of the answer; 200 until something sets another.
  int Status() const { return status_; }

  /// What was written and not sent, as UTF-8 or, for a download, bytes. Valid as long as the page, and
  /// changed by what is written.
  const std::string& Body() const { return body_; }

  /// The same without a copy; the page is empty afterwards.
  std::string TakeBody() { return std::exchange(body_, {}); }

  /// "text/html; charset=utf-8" until something sets another.
  const std::string& ContentType() const { return content_type_; }

  /// Names and values besides the type, in the order in which they were added.
  const std::vector<std::pair<std::string, std::string>>& Headers() const { return headers_; }

  /// @{
  /// The page itself, as views see it.
  const Request& GetRequest() const override { return *this; }
  Response& GetResponse() override { return *this; }
  /// @}

 private:
  std::span<const RequestField> Form() const override { return form_; }
  std::span<const RequestField> QueryString() const override { return query_; }
  std::string ServerVariable(std::string_view name) const override;
  std::string Method() const override { return method; }
  std::vector<std::string> HeaderValues(std::string_view name) const override;

  void Write(std::string_view html) override;
  void Clear() override;
  void SetContentType(std::string_view type) override;
  void AddHeader(std::string_view name, std::string_view value) override;
  [[noreturn]] void End() override;
  bool HasUnsentHeaders() const override { return !sent_; }
  void SetStatus(int status) override;

  void RequireUnsentHeaders() const;

  std::string script_name_;
  std::vector<RequestField> query_;
  std::vector<RequestField> form_;
  int status_ = 200;
  std::string body_;
  std::string content_type_ = "text/html; charset=utf-8";
  std::vector<std::pair<std::string, std::string>> headers_;
  bool sent_ = false;
};

}  // namespace dralo
