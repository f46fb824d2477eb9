// The panel of the source editors with what all types of sources share: number, name, group, cluster and position.
#pragma once

#include <QWidget>

#include <cstdint>
#include <string>
#include <string_view>

class QLineEdit;
class QString;

namespace korvex {

/// Keeps no values of its own: each property reads and writes its field. Reading throws ArithmeticFault for a number
/// beyond 32 bits; what is no number reads as 0, and a decimal comma ends a number.
class uscPopis : public QWidget {
    Q_OBJECT

public:
    explicit uscPopis(QWidget* parent);

    [[nodiscard]] std::int32_t CisloZdroje() const;
    void CisloZdroje(std::int32_t number);
    [[nodiscard]] std::int32_t CisloKomina() const;
    void CisloKomina(std::int32_t number);
    [[nodiscard]] std::string NazevZdroje() const;
    void NazevZdroje(std::string_view name);
    [[nodiscard]] std::int32_t Skupina() const;
    void Skupina(std::int32_t group);
    [[nodiscard]] std::int32_t Shluk() const;
    void Shluk(std::int32_t cluster);
    /// Position in whole metres.
    [[nodiscard]] std::int32_t X() const;
    void X(std::int32_t x);
    [[nodiscard]] std::int32_t Y() const;
    void Y(std::int32_t y);
    /// Altitude of the terrain in whole metres.
    [[nodiscard]] std::int32_t Z() const;
    void Z(std::int32_t altitude);

    /// The number cannot be typed, since it is not taken over: except for a source that got none of its own.
    void letNumberBeTyped();

private:
    QLineEdit* addField(const char* objectName, const QString& toolTip);

    QLineEdit* txtCisloZdroje;
    QLineEdit* txtCisloKomina;
    QLineEdit* txtNazevZdroje;
    QLineEdit* txtSkupina;
    QLineEdit* txtShluk;
    QLineEdit* txtX;
    QLineEdit* txtY;
    QLineEdit* txtZ;
};

}  // namespace korvex
