// Texte des Förderhöhen-Rechners auf der Produktseite
var texte = {
    titel: "Which pump suits me?",
    saughoehe: "Saughöhe in Metern",
    menge: "Gewünschte Fördermenge",
    berechnen: "Berechnen",
    zuHoch: "Die Saughöhe darf 8 m nicht übersteigen."
};
