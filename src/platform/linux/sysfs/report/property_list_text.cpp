#include "platform/linux/sysfs/report/property_list_text.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QXmlStreamWriter>
#include <nlohmann/json.hpp>

namespace tamberline::sysfs {
namespace {

using nlohmann::json;

QString base64(const json::binary_t& bytes) {
  return QString::fromLatin1(
      QByteArrayView(bytes.data(), qsizetype(bytes.size())).toByteArray().toBase64());
}

void write(const json& value, QXmlStreamWriter& xml) {
  if (value.is_object()) {
    xml.writeStartElement(QStringLiteral("dict"));
    for (const auto& [key, member] : value.items()) {
      xml.writeTextElement(QStringLiteral("key"), QString::fromStdString(key));
      write(member, xml);
    }
    xml.writeEndElement();
  } else if (value.is_array()) {
    xml.writeStartElement(QStringLiteral("array"));
    for (const json& element : value) {
      write(element, xml);
    }
    xml.writeEndElement();
  } else if (value.is_binary()) {
    xml.writeTextElement(QStringLiteral("data"), base64(value.get_binary()));
  } else if (value.is_boolean()) {
    xml.writeEmptyElement(value.get<bool>() ? QStringLiteral("true") : QStringLiteral("false"));
  } else if (value.is_number_integer()) {
    xml.writeTextElement(QStringLiteral("integer"), QString::fromStdString(value.dump()));
  } else {
    xml.writeTextElement(QStringLiteral("string"),
                         QString::fromStdString(value.get<std::string>()));
  }
}

} // namespace

std::string asPropertyList(const json& value) {
  QByteArray text;
  QXmlStreamWriter xml(&text);
  xml.writeStartDocument();
  xml.writeStartElement(QStringLiteral("plist"));
  xml.writeAttribute(QStringLiteral("version"), QStringLiteral("1.0"));
  write(value, xml);
  xml.writeEndDocument();
  return text.toStdString();
}

} // namespace tamberline::sysfs
