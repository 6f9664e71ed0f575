'use strict';
// By which size, by what and in which classes grains are counted: the reader's choice.

{
  const {t, ajustes, unidade, numero, inteiro, escolhas} = vorplex;
  const porId = (id) => document.getElementById(id);
  escolhas.classes = 'proprias';

  const dizEscolhas = () => {
    const {escala} = ajustes;
    const n = vorplex.fotos.length;
    const lados = [...new Set(vorplex.fotos.map((f) => f.lado))];
    const pixel = lados.length > 1 ? t('pixels2') : t('pixel', `${numero(lados[0] ?? escala.lado)} ${unidade}`);
    porId('subtitulo').textContent = [
      `${inteiro(n)} ${t(n === 1 ? 'fotografia' : 'fotografias')}`,
      `${t('tamanho')}: ${t(escolhas.grandeza)}`, t('porPeso', t(escolhas.peso)),
      vorplex.calibrada ? pixel : t('semEscala'),
    ].join(' · ');
    porId('definicoes').textContent =
      t('definicoes', t(escolhas.peso), t(`def_${escolhas.grandeza}`), t(`def_${escolhas.peso}`));
  };

  const muda = (qual) => (valor) => {
    escolhas[qual] = valor;
    vorplex.ordena(vorplex.graos);
    vorplex.refazGraficos();
    vorplex.quandoRefazGraficos?.();
    vorplex.fechaGaleria();
    dizEscolhas();
    vorplex.atualiza();
  };
  const pares = (...chaves) => chaves.map((chave) => [chave, t(chave)]);
  const comNome = (nome, lista) => vorplex.elemento('label', {}, t(nome), ' ', lista);
  porId('medidas').append(
    comNome('tamanho', vorplex.novaEscolha(t('tamanho'), pares('equivalente', 'menor', 'maior'),
                                           escolhas.grandeza, muda('grandeza'))),
    comNome('contaPor', vorplex.novaEscolha(t('contaPor'), pares('numero', 'area', 'volume'), escolhas.peso,
                                            muda('peso'))));
  if (ajustes.peneiras.length > 0) {
    porId('medidas').append(comNome('classes', vorplex.novaEscolha(
      t('classes'), [['proprias', t('classesProprias')], ['peneiras', t('peneiras').toLowerCase()]],
      escolhas.classes, muda('classes'))));
  }
  dizEscolhas();
}
