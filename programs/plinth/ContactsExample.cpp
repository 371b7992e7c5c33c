// The address book is laid out on one grid: two columns of boxes, rows of equal pitch, a band across the top
// and a row of buttons at the foot. All sizes are twips.
#include "programs/plinth/ContactsExample.h"

namespace plinth {
namespace {

constexpr float kPageWidth = 9600, kPageHeight = 7200;
constexpr float kLabelLeft = 240, kBoxLeft = 1620;     // left column
constexpr float kLabelRight = 5010, kBoxRight = 6300;  // right column
constexpr float kBoxWidth = 3060, kWideWidth = kBoxRight + kBoxWidth - kBoxLeft;
constexpr float kFirstRow = 900, kPitch = 420, kBoxHeight = 285;
constexpr std::int32_t kBand = 0x7A4A1E, kBandText = 0xFFFFFF, kLabelText = 0x404040, kFrame = 0xA0A0A0;
constexpr std::int32_t kSheet = 0xFAF7F2, kComputed = 0xF0F0E6;

constexpr float row(int n) { return kFirstRow + kPitch * static_cast<float>(n); }

class Layout {
 public:
  explicit Layout(ProjectDocument& document) : d_(document) {}

  void page(int page) { page_ = static_cast<std::int16_t>(page); }

  FieldRow& field(const char* tag, int type, int length, float left, float top, float width) {
    FieldRow& f = d_.fields.emplace_back();
    f.page = page_;
    f.tag = tag;
    f.fieldType = static_cast<std::uint8_t>(type);
    f.fieldLength = length;
    f.left = left, f.top = top, f.width = width, f.height = kBoxHeight;
    f.frameStyle = 1, f.frameColor = kFrame;
    f.alignment = type >= 1 && type <= 5 ? 1 : 0;
    f.tabOrder = ++tab_;
    return f;
  }

  TitleRow& label(const char* caption, float left, float top) {
    TitleRow& t = d_.titles.emplace_back();
    t.page = page_;
    t.printOn = 1;
    t.caption = caption;
    t.foreColor = kLabelText;
    t.left = left, t.top = top + 30;
    return t;
  }

  // A field with its label to the left, in the left (0) or right (1) column.
  FieldRow& labelled(const char* caption, const char* tag, int type, int length, int column, int n,
                     float width) {
    label(caption, column ? kLabelRight : kLabelLeft, row(n));
    return field(tag, type, length, column ? kBoxRight : kBoxLeft, row(n), width);
  }

  ComboRow& combo(const char* caption, const char* tag, float top, std::vector<std::string> items) {
    label(caption, kLabelRight, top);
    ComboRow& c = d_.combos.emplace_back();
    c.page = page_;
    c.printOn = 1;
    c.tag = tag;
    c.fieldLength = 30;
    c.left = kBoxRight, c.top = top, c.width = kBoxWidth;
    c.fontSize = 9;
    c.frameStyle = 1, c.frameColor = kFrame;
    c.items = std::move(items);
    c.tabOrder = ++tab_;
    return c;
  }

  void check(const char* caption, const char* tag, float left, float top, const char* help) {
    CheckRow& k = d_.checks.emplace_back();
    k.page = page_;
    k.printOn = 1;
    k.tag = tag;
    k.helpText = help;
    k.left = left, k.top = top;
    k.tabOrder = ++tab_;
    label(caption, left + 300, top - 15);
  }

  void memo(const char* tag, float left, float top, float width, float height) {
    MemoRow& m = d_.memos.emplace_back();
    m.page = page_;
    m.printOn = 1;
    m.tag = tag;
    m.fieldLength = 2000;
    m.left = left, m.top = top, m.width = width, m.height = height;
    m.frameStyle = 1, m.frameColor = kFrame;
    m.fontSize = 9;
    m.tabOrder = ++tab_;
  }

  SquareRow& square(float left, float top, float width, float height, std::int32_t fill) {
    SquareRow& s = d_.squares.emplace_back();
    s.page = page_;
    s.printOn = 1;
    s.left = left, s.top = top, s.width = width, s.height = height;
    s.fillColor = s.backColor = s.borderColor = fill;
    s.fillStyle = 0;
    s.backStyle = 1;
    return s;
  }

  void line(float y) {
    LineRow& l = d_.lines.emplace_back();
    l.page = page_;
    l.printOn = 1;
    l.x1 = kLabelLeft, l.x2 = kPageWidth - 240, l.y1 = l.y2 = y;
    l.borderColor = 0xC8C8C8;
  }

  void button(const char* caption, const char* link, int icon, float left, float width, const char* help) {
    ButtonRow& b = d_.buttons.emplace_back();
    b.page = page_;
    b.caption = caption;
    b.tag = link;
    b.helpText = help;
    b.left = left, b.top = 6240, b.width = width, b.height = 435;
    b.backColor = 0xEDE6DC;
    b.buttonIcon = static_cast<std::int16_t>(icon);
  }

 private:
  ProjectDocument& d_;
  std::int16_t page_ = 0;
  std::int16_t tab_ = 0;
};

void systemLabels(ProjectDocument& d) {
  TitleRow& help = d.titles[1];
  help.page = kPageAll, help.printOn = 0, help.foreColor = 0x707070;
  help.left = kLabelLeft, help.top = 6870;
  TitleRow& date = d.titles[4];
  date.page = kPageAll, date.printOn = 1, date.foreColor = kBandText;
  date.left = 6300, date.top = 240;
  TitleRow& number = d.titles[5];
  number.page = kPageAll, number.printOn = 1, number.foreColor = kBandText;
  number.left = 8160, number.top = 195, number.fontSize = 11.25f, number.fontBold = true;
}

void contactPage(Layout& at) {
  at.page(kPageAll);
  at.square(0, 0, kPageWidth, 660, kBand);
  TitleRow& name = at.label("Address Book", kLabelLeft, 105);
  name.foreColor = kBandText, name.fontSize = 15.75f, name.fontBold = true;

  at.page(0);
  at.labelled("First name", "First_Name", 0, 30, 0, 0, kBoxWidth).textCase = 2;
  at.labelled("Last name", "Last_Name", 0, 30, 1, 0, kBoxWidth).textCase = 2;
  at.labelled("Company", "Company", 0, 40, 0, 1, kBoxWidth);
  at.combo("Category", "Category", row(1), {"Customer", "Supplier", "Friend", "Family", "Other"});
  at.labelled("Street", "Street", 0, 60, 0, 2, kWideWidth);
  at.labelled("Zip / City", "Zip", 0, 10, 0, 3, 960);
  at.field("City", 0, 30, kBoxLeft + 1125, row(3), kBoxWidth - 1125);
  at.labelled("Country", "Country", 0, 30, 1, 3, kBoxWidth).textCase = 1;
  at.labelled("Phone", "Phone", 0, 24, 0, 4, kBoxWidth);
  FieldRow& email = at.labelled("E-mail", "Email", 0, 60, 1, 4, kBoxWidth);
  email.foreColor = 0x9A4A00;
  FieldRow& birthday = at.labelled("Birthday", "Birthday", 7, 10, 0, 5, 1440);
  birthday.noDefaultDate = 1;
  birthday.helpText = "Day of birth, empty when it is not known";
  FieldRow& next = at.labelled("Next contact", "Next_Contact", 7, 10, 1, 5, 1440);
  next.dayOffset = 14;
  next.helpText = "Two weeks from today unless you type another day";
  at.label("Notes", kLabelLeft, row(6));
  at.memo("Notes", kBoxLeft, row(6), kBoxWidth, 2100);
  at.label("Photo", kLabelRight, row(6));
  at.line(5685);
  at.check("Newsletter", "Newsletter", kLabelLeft, 5850, "Wants the monthly newsletter");
  at.check("VIP", "VIP", kBoxLeft + 300, 5850, "Treated with special care");
}

void photo(ProjectDocument& d) {
  PictureRow& p = d.pictures.emplace_back();
  p.page = 0;
  p.printOn = 1;
  p.picField = "Photo";
  p.picFlag = true, p.picBorder = 1, p.pictureMode = 1;
  p.left = kBoxRight, p.top = row(6), p.width = kBoxWidth, p.height = 2100;
  p.helpText = "Photo of the contact";
}

void orderPage(Layout& at) {
  at.page(1);
  at.labelled("Order date", "Order_Date", 7, 10, 0, 0, 1440).helpText = "The day of the order";
  at.labelled("Order time", "Order_Time", 10, 5, 1, 0, 960);
  at.labelled("Delivery", "Delivery", 9, 30, 0, 1, kBoxWidth).dayOffset = 7;
  at.combo("Payment", "Payment", row(1), {"Invoice", "Card", "Cash"});
  at.labelled("Quantity", "Quantity", 5, 10, 0, 3, 1440).helpText = "Number of pieces";
  at.labelled("Price", "Price", 2, 12, 0, 4, 1440).helpText = "Price of one piece";
  FieldRow& total = at.labelled("Total", "Total", 2, 12, 0, 5, 1440);
  total.formula = "F15*F16";
  total.backColor = kComputed;
  at.labelled("Discount %", "Discount", 1, 10, 1, 3, 1440);
  FieldRow& net = at.labelled("To pay", "To_Pay", 2, 12, 1, 5, 1440);
  net.formula = "F17-(F17*F18/100)";
  net.backColor = kComputed, net.fontBold = true;
  FieldRow& words = at.labelled("In words", "In_Words", 0, 120, 0, 6, kWideWidth);
  words.formula = "F20=CUR(F19)";
  words.backColor = kComputed;
  FieldRow& status = at.labelled("Status", "Status", 0, 10, 1, 8, 1440);
  status.formula = "IF K2=1 THEN F21=\"PAID\" ELSE F21=\"OPEN\"";
  status.backColor = kComputed;
  at.check("Paid", "Paid", kLabelLeft, row(8) + 30, "Tick when the money is there");
  at.line(row(2) + 195);
  at.line(row(7) + 165);
}

void foot(Layout& at) {
  at.page(kPageAll);
  at.button("New contact", "<>", 7, kLabelLeft, 1800, "Saves this contact and begins a new one");
  at.button("First", "<<<", 1, 2700, 1500, "Goes to the first contact");
  at.button("Previous", "<", 3, 4320, 1620, "Goes one contact back");
  at.button("Next", ">", 4, 6060, 1500, "Goes one contact on");
  at.button("Last", ">>>", 6, 7680, 1680, "Goes to the last contact");
}

ReportLabel reportLabel(const std::string& caption, int field, float left, float top, float width,
                        bool bold) {
  ReportLabel l;
  l.caption = caption;
  l.fieldOfLabel = static_cast<std::int16_t>(field);
  l.autoSize = field < 0;
  l.left = left, l.top = top, l.width = width, l.height = 240;
  l.fontBold = bold;
  l.rowOfLabel = field < 0 && top < 1000 ? 0 : 1;
  return l;
}

void addressReport(ProjectDocument& d) {
  ReportRow r;
  r.title = "Address list";
  ReportShape band;
  band.fillStyle = 0, band.fillColor = band.borderColor = kBand;
  band.left = 600, band.top = 600, band.width = 11040, band.height = 600;
  r.shapes.push_back(band);
  ReportLabel head = reportLabel("Address list", -1, 780, 720, 4500, true);
  head.foreColor = kBandText, head.fontSize = 14, head.height = 360;
  r.labels.push_back(head);
  struct Line {
    const char* caption;
    int field;
  };
  float top = 1500;
  for (const Line& line : {Line{"First name", 1},
                           {"Last name", 2},
                           {"Company", 3},
                           {"Street", 4},
                           {"City", 6},
                           {"Phone", 8},
                           {"E-mail", 9}}) {
    r.labels.push_back(reportLabel(line.caption, -1, 780, top, 1350, true));
    r.labels.push_back(
        reportLabel("F" + std::to_string(line.field) + ",1", line.field, 2400, top, 5400, false));
    top += 330;
  }
  ReportLine rule;
  rule.borderColor = kFrame;
  rule.x1 = 600, rule.x2 = 11640, rule.y1 = rule.y2 = top + 120;
  r.lines.push_back(rule);
  d.reports.push_back(r);
}

}  // namespace

void layOutContacts(ProjectDocument& d) {
  d.appTitle = "Contacts";
  d.pageSizeCode = 22;
  d.pageWidth = d.guideWidth = d.scrollLeft = kPageWidth;
  d.pageHeight = d.scrollHeight = kPageHeight;
  d.formWidth = kPageWidth + 120;  // the frame of a sizable window
  d.pageColor = {kSheet, kSheet, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF};
  d.pageCaptions[0] = "Contact";
  d.pageCaptions[1] = "Order";
  systemLabels(d);
  LineRow vacant;
  d.lines.push_back(vacant);
  Layout at(d);
  contactPage(at);
  photo(d);
  orderPage(at);
  foot(at);
  addressReport(d);
  d.emailField = 9, d.emailNameField = 1;
  d.dateVal = 5, d.dateVal2 = 4;
  d.options.check15 = 1;
  d.search.text1 = {"F2", "F1", "F3", "C1", "F9", "", "", "", "", "", ""};
  d.fileProp.comments = {"Example Company",
                         "Address book with orders",
                         "Copyright 2026 Example Company",
                         "",
                         "Contacts",
                         "1.0",
                         "",
                         "",
                         ""};
}

}  // namespace plinth
