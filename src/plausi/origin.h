#pragma once

#include <QStringList>
#include <vector>

#include "model/record.h"

namespace calvora {

/// What the program says about where the values of a record come from. `index` is a field of the
/// record, 0 to 40.

/// A field as it is called within a sentence, as "pH-Wert" or "Ks4,3".
QString nameOf(int index);

/// "es fehlt Kb8,2", "es fehlen pH-Wert und Temperatur". Empty if nothing is missing.
QString missingSentence(const QStringList& missing);

/// Meaning, range and unit of an input, as "Temperatur des Mediums bei der pH-Messung: 1 bis 90
/// °C". Empty for any other field.
QString describeInput(int index);

/// Name, range and unit of an input, as "Temperatur: 1 bis 90 °C". Empty for any other field.
QString rangeOfInput(int index);

/// What a result still needs, as "Kb8,2" or "Kb8,2 über 0". Empty if nothing is missing, and for an
/// input.
QStringList missingInputs(const AnalysisRecord& record, int index);

/// Why a field holds what it holds, in whole sentences, one to a line.
QString explain(const AnalysisRecord& record, int index);

/// The same for the two narrow displays: the conductivity from the ions, the approximated pH.
QString explainConductivity(const AnalysisRecord& record, const NarrowTexts& narrow);
QString explainApproximation(const AnalysisRecord& record, const NarrowTexts& narrow);

/// The shown results that belong to earlier inputs, in the order of the mask.
std::vector<int> keptFields(const AnalysisRecord& record);

/// Names them: "nicht neu berechnet: Hydrogencarbonat, Carbonat". Empty if there are none.
QString keptLine(const AnalysisRecord& record);

/// Counts them and tells what is missing: "2 alte Ergebnisse: es fehlt Kb8,2", with the
/// narrow displays where they are given. Empty if there are none.
QString keptSummary(const AnalysisRecord& record, const NarrowTexts& narrow = {});

/// What the program did by itself with the inputs between two states of the record: "Calcium und
/// Magnesium gelöscht: Gesamthärte eingegeben". `index` is the field that was entered, with
/// `typedText`; 0 stands for a file that was read. Empty if it did nothing.
QString whatChanged(const AnalysisRecord& before, const AnalysisRecord& after, int index,
                    const QString& typedText);

}  // namespace calvora
