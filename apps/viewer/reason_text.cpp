// reason_text.cpp - see reason_text.h.
// SPDX-License-Identifier: MIT
#include "reason_text.h"

#include <array>
#include <vector>

#include <QCoreApplication>
#include <QRegularExpression>

#include <platform/qt/qt_convert.h>

namespace zav {

namespace {

// %1, %2 ... are what a reason names, in the order in which it does. The first that fits is taken.
constexpr std::array Reasons{
    QT_TRANSLATE_NOOP("Reasons", "A sign stands within a number. Put a blank before it."),
    QT_TRANSLATE_NOOP("Reasons", "A sign or a point stands alone."),
    QT_TRANSLATE_NOOP("Reasons", "A number has two points."),
    QT_TRANSLATE_NOOP(
        "Reasons",
        "There are too many commas. Put a semicolon or a blank between the two coordinates."),
    QT_TRANSLATE_NOOP("Reasons", "A colon has no number before it."),
    QT_TRANSLATE_NOOP("Reasons", "A coordinate has at most two colons."),
    QT_TRANSLATE_NOOP("Reasons", "\"%1\" has no meaning beside grid metres; write mE and mN."),
    QT_TRANSLATE_NOOP("Reasons",
                      "\"%1\" has no meaning in a position; directions are N, S, E and W."),
    QT_TRANSLATE_NOOP("Reasons", "\"%1\" has no meaning in a position."),
    QT_TRANSLATE_NOOP("Reasons",
                      "\"O\" is east in German and west in French and Spanish; write E or W."),
    QT_TRANSLATE_NOOP("Reasons", "Grid metres are not negative."),
    QT_TRANSLATE_NOOP("Reasons", "Metres have one letter."),
    QT_TRANSLATE_NOOP(
        "Reasons",
        "UTM positions are a zone, the easting and the northing, as 32T 470693 5150563."),
    QT_TRANSLATE_NOOP(
        "Reasons",
        "UPS positions are A, B, Y or Z, the easting and the northing, as Z 2426773 1530125."),
    QT_TRANSLATE_NOOP("Reasons", "Both numbers are eastings, or both are northings."),
    QT_TRANSLATE_NOOP("Reasons", "The easting %1 is beyond 1000000 metres."),
    QT_TRANSLATE_NOOP("Reasons", "The northing %1 is beyond 10000000 metres."),
    QT_TRANSLATE_NOOP("Reasons", "There is no UTM band \"%1\"; bands are C to X without I and O."),
    QT_TRANSLATE_NOOP("Reasons", "The UTM zone %1 is not a number from 1 to 60."),
    QT_TRANSLATE_NOOP("Reasons",
                      "The zone %1 lacks its band or hemisphere: write %2T, or %3 north."),
    QT_TRANSLATE_NOOP("Reasons", "The northing does not lie in band %1, %2 to %3 degrees north."),
    QT_TRANSLATE_NOOP("Reasons", "The northing does not lie in band %1, %2 to %3 degrees south."),
    QT_TRANSLATE_NOOP("Reasons",
                      "UPS lacks its hemisphere: write A, B, Y or Z, or north or south."),
    QT_TRANSLATE_NOOP("Reasons", "\"%1\" is no hemisphere: write A, B, Y or Z, or north or south."),
    QT_TRANSLATE_NOOP("Reasons",
                      "That is further than 1500 km from the pole, where UPS is not used."),
    QT_TRANSLATE_NOOP("Reasons", "The easting does not lie in %1: A and Y are below 2000000."),
    QT_TRANSLATE_NOOP("Reasons", "The text is too long for a position."),
    QT_TRANSLATE_NOOP("Reasons", "Type an angle, as 10.5 or 10 30 E."),
    QT_TRANSLATE_NOOP("Reasons", "Type a position, as 47.5 8.25 or 32T 470693 5150563."),
    QT_TRANSLATE_NOOP("Reasons",
                      "The UTM zone is missing: write it in front, as 32T 470693 5150563."),
    QT_TRANSLATE_NOOP("Reasons", "That lies outside UTM, 80 degrees south to 84 degrees north."),
    QT_TRANSLATE_NOOP("Reasons", "%1S was read as the southern hemisphere."),
    QT_TRANSLATE_NOOP("Reasons",
                      "%1S was read as band S, 32 to 40 degrees north; write \"%2 south\" for the "
                      "southern hemisphere."),
    QT_TRANSLATE_NOOP("Reasons", "A sign for degrees, minutes or seconds has no number before it."),
    QT_TRANSLATE_NOOP("Reasons", "A coordinate has no number."),
    QT_TRANSLATE_NOOP("Reasons",
                      "A coordinate is degrees, then minutes, then seconds, as 47° 30' 15\"."),
    QT_TRANSLATE_NOOP("Reasons", "Only the last number of a coordinate may have decimals."),
    QT_TRANSLATE_NOOP("Reasons", "Only the degrees may have a sign."),
    QT_TRANSLATE_NOOP("Reasons", "Minutes and seconds are below 60, not %1."),
    QT_TRANSLATE_NOOP("Reasons", "A coordinate has one letter, before or after it."),
    QT_TRANSLATE_NOOP("Reasons", "A coordinate has a sign and a letter; leave one of them out."),
    QT_TRANSLATE_NOOP("Reasons",
                      "The latitude %1 is beyond 90 degrees. The latitude comes first, unless "
                      "letters tell, as in 8.25 E 47.5 N."),
    QT_TRANSLATE_NOOP("Reasons", "The longitude %1 is beyond 360 degrees."),
    QT_TRANSLATE_NOOP("Reasons", "That is one coordinate; a position has two, as 47.5 8.25."),
    QT_TRANSLATE_NOOP("Reasons",
                      "It is not clear where the second coordinate begins. Put a semicolon between "
                      "them, as 47 30; 8.25."),
    QT_TRANSLATE_NOOP("Reasons", "Both coordinates are latitudes (N or S)."),
    QT_TRANSLATE_NOOP("Reasons", "Both coordinates are longitudes (E or W)."),
    QT_TRANSLATE_NOOP("Reasons", "One angle is wanted, as 10.5 or 10 30 E."),
    QT_TRANSLATE_NOOP("Reasons", "A meridian lies east or west (E, W)."),
    QT_TRANSLATE_NOOP("Reasons", "A parallel lies north or south (N, S)."),
    QT_TRANSLATE_NOOP("Reasons", "The longitude of a meridian is at most 360 degrees."),
    QT_TRANSLATE_NOOP("Reasons", "The latitude of a parallel is at most 90 degrees."),
    QT_TRANSLATE_NOOP("Reasons",
                      "A grid reference has as many digits for the easting as for the northing."),
    QT_TRANSLATE_NOOP("Reasons", "A grid reference has at most 8 digits for each coordinate."),
    QT_TRANSLATE_NOOP("Reasons", "There is no square %1 in %2."),
    QT_TRANSLATE_NOOP("Reasons", "There is no zone %1."),
    QT_TRANSLATE_NOOP("Reasons", "That is no grid reference, as 32T MS 70693 50563."),
    QT_TRANSLATE_NOOP("Reasons",
                      "A grid reference begins with its zone, or near a pole with A, B, Y or Z."),
    QT_TRANSLATE_NOOP("Reasons", "cannot be opened"),
    QT_TRANSLATE_NOOP("Reasons", "cannot be read"),
    QT_TRANSLATE_NOOP("Reasons", "there is no such file"),
    QT_TRANSLATE_NOOP("Reasons", "there is no column %1"),
    QT_TRANSLATE_NOOP("Reasons", "line %1: a quote is not closed"),
    QT_TRANSLATE_NOOP("Reasons", "%1 is missing"),
    QT_TRANSLATE_NOOP("Reasons", "%1 \"%2\" is not a number"),
    QT_TRANSLATE_NOOP("Reasons", "%1 %2 is no whole number"),
    QT_TRANSLATE_NOOP("Reasons", "zone %1 is not whole"),
    QT_TRANSLATE_NOOP("Reasons", "%1 %2 is outside %3..%4"),
    QT_TRANSLATE_NOOP("Reasons", "%1 \"%2\" is neither true nor false"),
    QT_TRANSLATE_NOOP("Reasons", "%1 \"%2\" is neither meridian nor parallel"),
    QT_TRANSLATE_NOOP("Reasons", "%1 \"%2\" is not of the form #RRGGBB"),
    QT_TRANSLATE_NOOP("Reasons", "%1 \"%2\" is not of the form 2024-02-29 13:45"),
    QT_TRANSLATE_NOOP("Reasons", "%1 \"%2\" is none of %3"),
    QT_TRANSLATE_NOOP("Reasons", "%1 \"%2\" is too long and was cut"),
    QT_TRANSLATE_NOOP(
        "Reasons", "%1 holds a double quote or a line break, which a landmark file cannot store"),
    QT_TRANSLATE_NOOP("Reasons", "the row holds no position"),
    QT_TRANSLATE_NOOP("Reasons", "holds no landmarks"),
};

QRegularExpression FormOf(const char* Reason) {
  static const QRegularExpression Place(QStringLiteral("%[1-9]"));
  QStringList Parts = QString::fromUtf8(Reason).split(Place);
  for (QString& Part : Parts) Part = QRegularExpression::escape(Part);
  return QRegularExpression(QRegularExpression::anchoredPattern(Parts.join(QStringLiteral("(.+)"))),
                            QRegularExpression::DotMatchesEverythingOption);
}

const std::vector<QRegularExpression>& Forms() {
  static const std::vector<QRegularExpression> All = [] {
    std::vector<QRegularExpression> Made;
    for (const char* Reason : Reasons) Made.push_back(FormOf(Reason));
    return Made;
  }();
  return All;
}

// Nothing where it is none of the known reasons.
QString Translated(const QString& Reason) {
  for (size_t i = 0; i < Reasons.size(); ++i) {
    const QRegularExpressionMatch Match = Forms()[i].match(Reason);
    if (!Match.hasMatch()) continue;
    QString Text = QCoreApplication::translate("Reasons", Reasons.at(i));
    // At once, so that a name with "%2" in it stays as it is.
    static const QRegularExpression Place(QStringLiteral("%([1-9])"));
    qsizetype From = 0;
    QString Filled;
    for (auto Each = Place.globalMatch(Text); Each.hasNext();) {
      const QRegularExpressionMatch Hole = Each.next();
      Filled +=
          Text.mid(From, Hole.capturedStart() - From) + Match.captured(Hole.captured(1).toInt());
      From = Hole.capturedEnd();
    }
    return Filled + Text.mid(From);
  }
  return {};
}

}  // namespace

QString ReasonText(std::string_view Reason) {
  const QString Given = ToQString(Reason);
  const QString Colon = QStringLiteral(": ");
  // A file's name may hold a colon, and so may a reason: the longest known reason is the one.
  for (qsizetype At = 0; At >= 0;) {
    const QString Text = Translated(Given.mid(At));
    if (!Text.isEmpty()) return Given.left(At) + Text;
    At = Given.indexOf(Colon, At);
    if (At >= 0) At += Colon.size();
  }
  return Given;
}

}  // namespace zav
