// Texte des Förderhöhen-Rechners auf der Produktseite
var texte = {
    titel: "Welche Pumpe passt zu mir?",
    saughoehe: "Saughöhe in Metern",
    menge: "Gewünschte Fördermenge",
    berechnen: "Berechnen",
    zuHoch: "Die Saughöhe darf 8 m nicht übersteigen."
};
