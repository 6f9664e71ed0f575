#!/usr/bin/python3
"""Learns the weights by which fitted shapes are judged. See docs/treino.md; script/treina calls it.

usage: treina.py [options] PASTA PROGRAMAS TRABALHO PESOS

PASTA       labelled pictures, in sub-folders or in itself
PROGRAMAS   folder of the programs Vorplex, cenas and treino
TRABALHO    folder for what is made on the way
PESOS       the file of weights to write

Fitting, looking, choosing and comparing are the program's own code (treino); what is learned here is
three logistic scores: of a coarse fit, of a shape alone, of a shape in its picture's company.
Needs Debian's python3-numpy.
"""
import os

os.environ["OPENBLAS_NUM_THREADS"] = "1"  # sums in one order

import argparse
import csv
import glob
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor

import numpy as np

AQUI = os.path.dirname(os.path.abspath(__file__))
MENOR_CORRELACAO = "0.02"     # of the detections that candidates come from
POUCO, BASTANTE = 0.4, 0.9    # IoU that is no grain at all, and wholly one
BASTAM = 3000                 # candidates of a picture
MENOR_APOIO = 0.33            # of the grains that are told
ACERTO = 0.5                  # IoU of a grain that is found
RIGOR = {"esboco": 1e-4, "sozinha": 1e-4, "acompanhada": 1e-3}  # of the ridge


class Foto:
    """A picture: where its files are, and what becomes known about its candidates."""

    def __init__(self, nome, tipo, grupo, png):
        self.nome, self.tipo, self.grupo, self.png = nome, tipo, grupo, png
        self.verdade = png[:-4] + ".csv"
        rotulos = png[:-4] + "_labels.png"
        self.rotulos = rotulos if os.path.exists(rotulos) else "-"

    def leVerdade(self):
        with open(self.verdade, newline="") as arquivo:
            self.cortado = np.array([int(float(r.get("edge") or 0)) for r in csv.DictReader(arquivo)], dtype=bool)


# -- pictures

def rotuladas(pasta):
    """The labelled pictures of a folder and its sub-folders."""
    fotos = []
    for tabela in sorted(glob.glob(pasta + "/*.csv") + glob.glob(pasta + "/*/*.csv")):
        nome = os.path.basename(tabela)[:-4]
        if nome == "kinds" or not os.path.exists(tabela[:-4] + ".png"):
            continue
        sub = os.path.relpath(os.path.dirname(tabela), pasta)
        tipo = tiposDe(os.path.dirname(tabela)).get(nome, nome.rsplit("_", 1)[0])
        fotos.append(Foto(nome if sub == "." else sub + "-" + nome, tipo, "rotuladas", tabela[:-4] + ".png"))
    return fotos


def tiposDe(pasta):
    """What kinds.csv says, if there is one."""
    nome = pasta + "/kinds.csv"
    if not os.path.exists(nome):
        return {}
    with open(nome, newline="") as arquivo:
        return {r["name"]: r["kind"] for r in csv.DictReader(arquivo)}


def cenas(o):
    """The rendered scenes to learn from, and those of the kinds that are never learned on."""
    linhas = subprocess.run([o.programas + "/cenas", "lista"], check=True, capture_output=True, text=True).stdout
    fotos = []
    for tipo, grupo, _ in (x.split("\t") for x in linhas.splitlines()):
        if o.tipos and tipo not in o.tipos:
            continue
        for semente in o.sementes:
            nome = "cena-%s_%s" % (tipo, semente)
            fotos.append(Foto(nome, "cena " + tipo, grupo, "%s/%s.png" % (o.trabalho, nome)))
            fotos[-1].renderiza = [o.programas + "/cenas", tipo, semente]
    return fotos


# -- the steps that are the program's

def aproveita(alvo, comando, parte):
    """Runs a command that writes `alvo` as its argument number `parte`, unless it is there."""
    if os.path.exists(alvo):
        return
    meio = alvo[:-4] + ".meio" + alvo[-4:]
    roda([meio if k == parte else x for k, x in enumerate(comando)])
    os.rename(meio, alvo)


def roda(comando):
    r = subprocess.run(comando, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
    if r.returncode:
        sys.exit("%s: %s" % (" ".join(comando), r.stderr.strip()))


def paraTodas(faz, fotos):
    with ThreadPoolExecutor(os.cpu_count()) as fios:
        list(fios.map(faz, fotos))


def leTabela(nome):
    """(column names, rows)"""
    with open(nome, "rb") as arquivo:
        colunas = arquivo.readline().decode().rstrip("\n").split(",")
        return colunas, np.frombuffer(arquivo.read(), dtype=np.float64).reshape(-1, len(colunas))


def gravaTabela(nome, coluna, valores):
    with open(nome, "wb") as arquivo:
        arquivo.write(coluna.encode() + b"\n" + np.asarray(valores, dtype=np.float64).tobytes())


def arquivo(o, foto, fim):
    return "%s/%s.%s" % (o.trabalho, foto.nome, fim)


def busca(o, foto):
    """Renders the scene, if it is one, searches it and fits all candidates."""
    if hasattr(foto, "renderiza"):
        tabela = arquivo(o, foto, "csv")
        if not (os.path.exists(tabela) and os.path.exists(foto.png)):
            roda(foto.renderiza + [foto.png, tabela] + (o.tamanho.split("x") if o.tamanho else []))
    lista, tabela = arquivo(o, foto, "ho1"), arquivo(o, foto, "cand")
    aproveita(lista, [o.programas + "/Vorplex", "correla", foto.png, AQUI + "/banco.cfg", lista, MENOR_CORRELACAO], 4)
    roda([o.programas + "/treino", "candidatos", foto.png, lista, foto.verdade, foto.rotulos, tabela])
    foto.leVerdade()
    colunas, t = leTabela(tabela)
    foto.iou, foto.grao = t[:, 0].copy(), t[:, 1].astype(int)
    foto.bom = np.clip((foto.iou - POUCO) / (BASTANTE - POUCO), 0, 1)
    foto.nomes = colunas[colunas.index("fora") + 1:]
    n = len(t)
    foto.quais = np.arange(n) if n <= BASTAM else np.linspace(0, n - 1, BASTAM).astype(int)
    foto.tracos = t[foto.quais, -len(foto.nomes):]


def escolhe(o, foto, nota):
    """Chooses among the candidates by the score of shapes alone."""
    pesos, tabela = arquivo(o, foto, "nota"), arquivo(o, foto, "escolha")
    media, desvio, b = nota
    with open(pesos, "w") as saida:
        for linha in zip(media, desvio, b):
            saida.write("%.9g %.9g %.9g\n" % linha)
        saida.write("%.9g\n" % b[-1])
    roda([o.programas + "/treino", "escolhe", foto.png, arquivo(o, foto, "cand"), pesos, tabela])
    _, t = leTabela(tabela)
    foto.escolha = t[:, 0].astype(int)
    foto.apoio = logistica(t[:, 1])


def compara(o, foto):
    """What each chosen shape looks like beside the others, by the support that they have so far."""
    apoio, tabela = arquivo(o, foto, "apoio"), arquivo(o, foto, "companhia")
    gravaTabela(apoio, "apoio", foto.apoio)
    roda([o.programas + "/treino", "compara", arquivo(o, foto, "escolha"), apoio, tabela])
    foto.nomesDaCompanhia, foto.companhia = leTabela(tabela)


def esboca(o, foto):
    tabela = arquivo(o, foto, "esboco")
    roda([o.programas + "/treino", "esboca", foto.png, arquivo(o, foto, "ho1"), arquivo(o, foto, "nota"), tabela])
    colunas, t = leTabela(tabela)
    foto.nomesDoEsboco, foto.esboco, foto.notaFinal = colunas[1:], t[:, 1:], t[:, 0]


# -- learning

def logistica(z):
    return 1 / (1 + np.exp(-np.clip(z, -30, 30)))


def regressao(partes, rigor):
    """Logistic regression with a ridge, by Newton's steps. `partes`: (features, truth from 0 to 1,
    weight) of each picture. Returns means, deviations, and coefficients with the constant last."""
    x = np.concatenate([p[0] for p in partes])
    y = np.concatenate([p[1] for p in partes])
    w = np.concatenate([np.full(len(p[1]), p[2]) for p in partes])
    media, desvio = x.mean(0), x.std(0) + 1e-6
    x = np.c_[(x - media) / desvio, np.ones(len(x))]
    w /= w.sum()
    b = np.zeros(x.shape[1])
    puxa = np.eye(len(b)) * rigor
    puxa[-1, -1] = 0
    for _ in range(25):
        p = logistica(x @ b)
        passo = np.linalg.solve((x * (w * p * (1 - p))[:, None]).T @ x + puxa + 1e-9 * np.eye(len(b)),
                                x.T @ (w * (p - y)) + puxa @ b)
        b -= passo
        if np.abs(passo).max() < 1e-6:
            break
    return media, desvio, b


def nota(pesos, x):
    media, desvio, b = pesos
    return ((x - media) / desvio) @ b[:-1] + b[-1]


def quantasDoTipo(fotos, foto):
    return sum(f.tipo == foto.tipo for f in fotos)


def aprendeSozinha(fotos):
    """Every kind weighs the same, every picture in it, every candidate in that."""
    partes = []
    for f in fotos:
        n = len(f.quais)
        if n:
            partes.append((f.tracos, f.bom[f.quais], 1 / quantasDoTipo(fotos, f) / n))
    return regressao(partes, RIGOR["sozinha"])


def aprendeAcompanhada(fotos):
    """Pictures of many grains weigh more, but less than by their number."""
    partes = []
    for f in fotos:
        bom = f.bom[f.escolha]
        if len(bom):
            partes.append((f.companhia, bom, 1 / np.sqrt(max(1, bom.sum())) / quantasDoTipo(fotos, f)))
    return regressao(partes, RIGOR["acompanhada"])


def aprendeEsboco(fotos):
    """How probable it is that a fine fit will be worth its time."""
    partes = [(f.esboco, logistica(f.notaFinal + 1.5), 1 / len(f.esboco)) for f in fotos if len(f.esboco)]
    return regressao(partes, RIGOR["esboco"])


def semTipo(fotos, tipo):
    return [f for f in fotos if f.tipo != tipo]


def julgaEmCompanhia(o, aprendidas, todas):
    """Learns the last stage in two rounds, since the support of the others counts in it. A labelled
    picture gets its support from weights learned without its kind."""
    tipos = sorted({f.tipo for f in aprendidas if f.grupo == "rotuladas"})
    for _ in range(2):
        paraTodas(lambda f: compara(o, f), todas)
        pesos = aprendeAcompanhada(aprendidas)
        apoios = {}
        semEles = {t: aprendeAcompanhada(semTipo(aprendidas, t) or aprendidas) for t in tipos}
        for f in todas:
            apoios[f] = logistica(nota(semEles.get(f.tipo, pesos), f.companhia)) if len(f.companhia) else f.apoio
        for f in todas:
            f.apoio = apoios[f]
    return pesos


# -- the score

def contas(foto):
    """(found, told but wrong, missed); grains that the border cuts count as neither."""
    sobram = foto.escolha[foto.apoio >= MENOR_APOIO]
    usados, certos, errados = set(), 0, 0
    for k in sobram[np.argsort(-foto.iou[sobram], kind="stable")]:
        grao = foto.grao[k]
        if foto.iou[k] < ACERTO or grao in usados:
            errados += 1
            continue
        usados.add(grao)
        certos += not foto.cortado[grao]
    return np.array([certos, errados, (~foto.cortado).sum() - certos])


def mostra(titulo, fotos):
    print("\n%s\n%-28s %5s %6s %6s %6s %6s" % (titulo, "", "fotos", "graos", "P", "R", "F1"))
    f1 = []
    for tipo in sorted({f.tipo for f in fotos}):
        deles = [f for f in fotos if f.tipo == tipo]
        certos, errados, faltam = sum(contas(f) for f in deles)
        f1.append(2 * certos / max(1, 2 * certos + errados + faltam))
        print("%-28s %5d %6d %6.3f %6.3f %6.3f" % (tipo, len(deles), certos + faltam, certos / max(1, certos + errados),
                                                 certos / max(1, certos + faltam), f1[-1]))
    print("%-28s %27s %6.3f" % ("mean", "", np.mean(f1) if f1 else 0), flush=True)


# -- the file

def numero(x):
    texto = "%.6g" % x
    return texto + ("F" if "." in texto or "e" in texto else ".0F")


def bloco(pesos, nomes):
    media, desvio, b = pesos
    termos = "".join("     {%s, %s, %s},  // %s\n" % (numero(m), numero(d), numero(c), n)
                     for m, d, c, n in zip(media, desvio, b, nomes))
    return "{{{\n%s  }},\n  %s}" % (termos, numero(b[-1]))


def leArgumentos():
    p = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    p.add_argument("--tipos", type=lambda s: s.split(","), help="kinds of rendered scenes, all if not given")
    p.add_argument("--sementes", type=lambda s: s.split(","), default=["11", "12"], help="of the scenes")
    p.add_argument("--tamanho", help="of the scenes, ROWSxCOLUMNS")
    for nome in ("pasta", "programas", "trabalho", "pesos"):
        p.add_argument(nome)
    return p.parse_args()


def main():
    o = leArgumentos()
    os.makedirs(o.trabalho, exist_ok=True)
    todas = rotuladas(o.pasta.rstrip("/")) + cenas(o)
    aprendidas = [f for f in todas if f.grupo != "reservado"]
    deFora = [f for f in todas if f.grupo == "rotuladas"]
    if not aprendidas:
        sys.exit("treina: no pictures to learn from")
    paraTodas(lambda f: busca(o, f), todas)
    print("%d pictures, %d to learn from, %d candidates" % (len(todas), len(aprendidas), sum(len(f.bom) for f in todas)),
          flush=True)

    sozinha = aprendeSozinha(aprendidas)
    semEles = {t: aprendeSozinha(semTipo(aprendidas, t) or aprendidas) for t in sorted({f.tipo for f in deFora})}
    paraTodas(lambda f: escolhe(o, f, semEles.get(f.tipo, sozinha)), todas)
    julgaEmCompanhia(o, aprendidas, todas)
    mostra("Labelled pictures, their kind left out", deFora)
    mostra("Scenes of reserved kinds, never learned on", [f for f in todas if f.grupo == "reservado"])
    mostra("Scenes learned on", [f for f in todas if f.grupo == "treino"])

    paraTodas(lambda f: escolhe(o, f, sozinha), deFora)
    for f in todas:
        f.apoio = logistica(leTabela(arquivo(o, f, "escolha"))[1][:, 1])
    acompanhada = julgaEmCompanhia(o, aprendidas, aprendidas)
    paraTodas(lambda f: esboca(o, f), aprendidas)
    esboco = aprendeEsboco(aprendidas)
    f = aprendidas[0]
    with open(o.pesos, "w") as saida:
        saida.write("// Written by script/treina; not to be edited. Mean, deviation, coefficient.\n")
        saida.write(",\n".join((bloco(esboco, f.nomesDoEsboco), bloco(sozinha, f.nomes),
                                bloco(acompanhada, f.nomesDaCompanhia))) + "\n")


if __name__ == "__main__":
    main()
